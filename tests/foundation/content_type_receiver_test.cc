#include "foundation/content_type_receiver.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "foundation/hash_algorithm_receiver.h"
#include "tests/foundation/cut_everywhere.h"

namespace {

void Give(StructuredFieldMaker& maker, const Runs& runs) {
    maker.Start();
    for (const std::string_view run : runs) {
        const ConstData data(run);
        maker.Data(data.begin, data.end);
    }
    maker.Finish();
}

// "number main/sub" and each parameter that is not empty, in a fixed order.
std::string Said(const ContentTypeReceiver& type) {
    std::string said = std::to_string(type.ContentType()) + " ";
    said.append(type.MainType().View()).append("/").append(type.Subtype().View());
    const auto say = [&said](const char* name, ConstData text) {
        if (!text.Empty()) {
            said.append(" ").append(name).append("=").append(text.View());
        }
    };
    say("boundary", type.Boundary());
    say("type", type.Type());
    say("charset", type.Charset());
    say("micalg", type.MicAlg());
    say("protocol", type.Protocol());
    return said;
}

std::string Read(std::string_view field) {
    return CutEverywhere(field, [](const Runs& runs) {
        ContentTypeReceiver type;
        StructuredFieldMaker maker(type, ContentTypeReceiver::extraSpecial);
        Give(maker, runs);
        return Said(type);
    });
}

unsigned Number(const std::string& field) {
    ContentTypeReceiver type;
    StructuredFieldMaker maker(type, ContentTypeReceiver::extraSpecial);
    Give(maker, {field});
    return type.ContentType();
}

TEST(ContentTypeReceiver, ReadsTheTypesAndTheParameters) {
    EXPECT_EQ(Read("multipart/signed; boundary=\"a b\"; micalg=sha1"),
              "20491 multipart/signed boundary=a b micalg=sha1");
    EXPECT_EQ(Read("multipart/related; type=\"Application/x-Praxel-Site-Masthead\"; boundary=xyz"),
              "20489 multipart/related boundary=xyz type=Application/x-Praxel-Site-Masthead");
    EXPECT_EQ(Read("multipart/signed; protocol=\"Application/X-PKCS7-Signature\"; micalg=SHA1"),
              "20491 multipart/signed micalg=SHA1 protocol=Application/X-PKCS7-Signature");
    EXPECT_EQ(Read("text/plain; charset=\"ISO-8859-1\"; format=flowed"), "0 text/plain charset=iso-8859-1");
}

TEST(ContentTypeReceiver, CaseOfTypesAndParameterNamesIsIgnored) {
    EXPECT_EQ(Read("MultiPart/SIGNED; BOUNDARY=AbC; MicAlg=Sha1"), "20491 multipart/signed boundary=AbC micalg=Sha1");
}

TEST(ContentTypeReceiver, CommentsAndWhiteSpaceMayStandAnywhere) {
    EXPECT_EQ(Read("(a (b) c) multipart (x) / (\\)) signed ; (=) boundary (/) = (;) \"q\" (end)"),
              "20491 multipart/signed boundary=q");
}

TEST(ContentTypeReceiver, EscapesInAQuotedBoundaryAreTakenOff) {
    EXPECT_EQ(Read(R"(multipart/mixed; boundary="a\"b\\c")"), R"(20480 multipart/mixed boundary=a"b\c)");
}

TEST(ContentTypeReceiver, OnlyTheFirstTokenAfterASeparatorCounts) {
    EXPECT_EQ(Read("multipart extra/signed extra; boundary extra=a b \"c\""), "20491 multipart/signed boundary=a");
    EXPECT_EQ(Read("multipart/signed/mixed"), "20491 multipart/signed");
    EXPECT_EQ(Read("multipart/\"signed\" signed"), "0 multipart/");
}

TEST(ContentTypeReceiver, OfARepeatedParameterTheLastCounts) {
    EXPECT_EQ(Read("multipart/mixed; boundary=long; boundary=b"), "20480 multipart/mixed boundary=b");
}

TEST(ContentTypeReceiver, OddFieldsRaiseNothing) {
    EXPECT_EQ(Read(""), "0 /");
    EXPECT_EQ(Read("multipart"), "0 multipart/");
    EXPECT_EQ(Read("multipart/"), "0 multipart/");
    EXPECT_EQ(Read("/signed"), "0 /signed");
    EXPECT_EQ(Read(";;=;=x;boundary;boundary=;a/b"), "0 /");
    EXPECT_EQ(Read("multipart/mixed; x/y=boundary; [boundary]=a; =b"), "20480 multipart/mixed");
    EXPECT_EQ(Read("multipart/mixed; \"boundary\"=a"), "20480 multipart/mixed");
    EXPECT_EQ(Read("multipart;/signed"), "0 multipart/");
    EXPECT_EQ(Read("multipart/mixed; boundary=\"open"), "20480 multipart/mixed boundary=open");
}

TEST(ContentTypeReceiver, TokensAreCutAt80Bytes) {
    const std::string text(200, 'x');
    const std::string cut(80, 'x');
    EXPECT_EQ(Read(text + "/" + text + "; boundary=" + text + "; type=\"" + text + "\""),
              "0 " + cut + "/" + cut + " boundary=" + cut + " type=" + cut);
    // A long name that begins with a known one is not that one.
    EXPECT_EQ(Read("a/b; boundary" + text + "=c"), "0 a/b");
}

TEST(ContentTypeReceiver, TheNextFieldStartsAnew) {
    ContentTypeReceiver type;
    StructuredFieldMaker maker(type, ContentTypeReceiver::extraSpecial);
    Give(maker, {"multipart/signed; boundary=a; type=b; charset=c; micalg=d; protocol=e"});
    Give(maker, {"message/rfc822"});
    EXPECT_EQ(Said(type), "24576 message/rfc822");
}

TEST(ContentTypeReceiver, ResetGivesTheTypeOfAPartWithoutTheField) {
    ContentTypeReceiver type;
    StructuredFieldMaker maker(type, ContentTypeReceiver::extraSpecial);
    Give(maker, {"multipart/signed; boundary=a"});
    EXPECT_TRUE(type.IsMultipart());
    type.Reset(ContentTypes::messageRfc822);
    EXPECT_EQ(Said(type), "24576 /");
    EXPECT_FALSE(type.IsMultipart());
}

TEST(ContentTypes, EveryMultipart) {
    const char* const names[] = {"mixed",      "alternative", "digest",        "parallel",    "appledouble",
                                 "byteranges", "header-set",  "encrypted",     "form-data",   "related",
                                 "report",     "signed",      "voice-message", "x-directory2"};
    unsigned number = 5 * 4096;
    for (const char* const name : names) {
        EXPECT_EQ(Number(std::string("multipart/") + name), number++) << name;
    }
    EXPECT_EQ(ContentTypes::multipartSigned, 20491u);
    EXPECT_EQ(ContentTypes::multipartRelated, 20489u);
}

TEST(ContentTypes, EveryMessage) {
    const char* const names[] = {"rfc822", "partial", "external-body", "news", "http", "delivery-status"};
    unsigned number = 6 * 4096;
    for (const char* const name : names) {
        EXPECT_EQ(Number(std::string("message/") + name), number++) << name;
    }
}

TEST(ContentTypes, EveryApplication) {
    const std::string_view names[] = {"octet-stream",
                                      "postscript",
                                      "oda",
                                      "atomicmail",
                                      "andrew-inset",
                                      "slate",
                                      "wita",
                                      "dec-dx",
                                      "dca-rft",
                                      "activemessage",
                                      "rtf",
                                      "applefile",
                                      "mac-binhex40",
                                      "news-message-id",
                                      "news-transmission",
                                      "wordperfect5.1",
                                      "pdf",
                                      "zip",
                                      "macwriteii",
                                      "msword",
                                      "remote-printing",
                                      "mathematica",
                                      "cybercash",
                                      "commonground",
                                      "iges",
                                      "riscos",
                                      "eshop",
                                      "x400-bp",
                                      "sgml",
                                      "cals-1840",
                                      "pgp-encrypted",
                                      "pgp-signature",
                                      "pgp-keys",
                                      "pkcs7-mime",
                                      "pkcs7-signature",
                                      "pkcs10",
                                      "pkix-cert",
                                      "pkix-crl",
                                      "edi-x12",
                                      "edifact",
                                      "edi-consent",
                                      "index",
                                      "xml",
                                      "http",
                                      "xhtml+xml",
                                      "vnd.ms-excel",
                                      "vnd.ms-powerpoint",
                                      "vnd.ms-project",
                                      "compress",
                                      "gzip",
                                      "bzip2",
                                      "x-tar",
                                      "x-cpio",
                                      "x-gtar",
                                      "x-shar",
                                      "x-praxel-site-masthead"};
    unsigned number = 4 * 4096;
    for (const std::string_view name : names) {
        EXPECT_EQ(Number("application/" + std::string(name)), number++) << name;
    }
}

TEST(ContentTypes, TwoNamesMayShareANumber) {
    const std::pair<const char*, const char*> names[] = {
        {"zip", "x-zip-compressed"},  {"gzip", "x-gzip"},
        {"bzip2", "x-bzip2"},         {"compress", "x-compress"},
        {"compress", "x-compressed"}, {"pkcs7-mime", "x-pkcs7-mime"},
        {"pkcs10", "x-pkcs10"},       {"pkcs7-signature", "x-pkcs7-signature"},
    };
    for (const auto& [name, other] : names) {
        EXPECT_EQ(Number(std::string("application/") + name), Number(std::string("application/") + other)) << other;
    }
}

TEST(ContentTypes, WhatIsInNoTableFallsToADefault) {
    EXPECT_EQ(Number("application/unheard-of"), ContentTypes::octetStream);
    EXPECT_EQ(Number("multipart/unheard-of"), ContentTypes::multipartMixed);
    EXPECT_EQ(Number("message/unheard-of"), ContentTypes::octetStream);
    EXPECT_EQ(Number("text/plain"), ContentTypes::other);
    EXPECT_EQ(Number("unheard-of/signed"), ContentTypes::other);
}

TEST(HashAlgorithmReceiver, KnowsEveryDigestByEachOfItsNames) {
    const std::pair<std::string_view, const char*> names[] = {
        {"md5", "md5"},        {"rsa-md5", "md5"},   {"sha1", "sha1"},      {"sha-1", "sha1"},
        {"rsa-sha1", "sha1"},  {"sha224", "sha224"}, {"sha-224", "sha224"}, {"sha256", "sha256"},
        {"sha-256", "sha256"}, {"sha384", "sha384"}, {"sha-384", "sha384"}, {"sha512", "sha512"},
        {"sha-512", "sha512"}, {"SHA1", "sha1"},     {"Sha-256", "sha256"},
    };
    for (const auto& [name, digest] : names) {
        EXPECT_STREQ(DigestNameOfMicAlg(ConstData(name)), digest) << name;
    }
}

TEST(HashAlgorithmReceiver, OfSeveralTheFirstThatIsKnownCounts) {
    const auto read = [](std::string_view value) {
        return CutEverywhere(value, [](const Runs& runs) -> std::string {
            HashAlgorithmReceiver receiver;
            StructuredFieldMaker maker(receiver);
            Give(maker, runs);
            return receiver.DigestName() == nullptr ? "none" : receiver.DigestName();
        });
    };
    EXPECT_EQ(read("sha1, md5"), "sha1");
    EXPECT_EQ(read("whirl,sha-256 , sha1"), "sha256");
    EXPECT_EQ(read("(sha1) md5"), "md5");
    EXPECT_EQ(read("unknown"), "none");
    EXPECT_EQ(read("sha"), "none");
    EXPECT_EQ(read("sha10"), "none");
    EXPECT_EQ(read(""), "none");
    EXPECT_EQ(read("sha1" + std::string(200, 'x')), "none");
}

TEST(HashAlgorithmReceiver, ReadsOneFieldAfterTheOther) {
    HashAlgorithmReceiver receiver;
    StructuredFieldMaker maker(receiver);
    Give(maker, {"sha1"});
    EXPECT_STREQ(receiver.DigestName(), "sha1");
    Give(maker, {"none"});
    EXPECT_EQ(receiver.DigestName(), nullptr);
}

}  // namespace
