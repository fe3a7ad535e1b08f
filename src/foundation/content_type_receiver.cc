#include "foundation/content_type_receiver.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace ContentTypes {

namespace {

struct Row {
    std::string_view name;
    unsigned number;
};

// clang-format off
constexpr Row kMainTypes[] = {
    {"application", application},
    {"message",     message},
    {"multipart",   multipart},
};

// Numbers go by the order of registration; a name and its older "x-" form share one.
constexpr Row kApplication[] = {
    {"activemessage",               9},
    {"andrew-inset",                4},
    {"applefile",                  11},
    {"atomicmail",                  3},
    {"bzip2",                      50},
    {"cals-1840",                  29},
    {"commonground",               23},
    {"compress",                   48},
    {"cybercash",                  22},
    {"dca-rft",                     8},
    {"dec-dx",                      7},
    {"edi-consent",                40},
    {"edi-x12",                    38},
    {"edifact",                    39},
    {"eshop",                      26},
    {"gzip",                       49},
    {"http",                       43},
    {"iges",                       24},
    {"index",                      41},
    {"mac-binhex40",               12},
    {"macwriteii",                 18},
    {"mathematica",                21},
    {"msword",                     19},
    {"news-message-id",            13},
    {"news-transmission",          14},
    {"octet-stream",                0},
    {"oda",                         2},
    {"pdf",                        16},
    {"pgp-encrypted",              30},
    {"pgp-keys",                   32},
    {"pgp-signature",              31},
    {"pkcs10",                     35},
    {"pkcs7-mime",                 33},
    {"pkcs7-signature",            34},
    {"pkix-cert",                  36},
    {"pkix-crl",                   37},
    {"postscript",                  1},
    {"remote-printing",            20},
    {"riscos",                     25},
    {"rtf",                        10},
    {"sgml",                       28},
    {"slate",                       5},
    {"vnd.ms-excel",               45},
    {"vnd.ms-powerpoint",          46},
    {"vnd.ms-project",             47},
    {"wita",                        6},
    {"wordperfect5.1",             15},
    {"x-bzip2",                    50},
    {"x-compress",                 48},
    {"x-compressed",               48},
    {"x-cpio",                     52},
    {"x-gtar",                     53},
    {"x-gzip",                     49},
    {"x-pkcs10",                   35},
    {"x-pkcs7-mime",               33},
    {"x-pkcs7-signature",          34},
    {"x-praxel-site-masthead",     55},
    {"x-shar",                     54},
    {"x-tar",                      51},
    {"x-zip-compressed",           17},
    {"x400-bp",                    27},
    {"xhtml+xml",                  44},
    {"xml",                        42},
    {"zip",                        17},
};

constexpr Row kMultipart[] = {
    {"alternative",    1},
    {"appledouble",    4},
    {"byteranges",     5},
    {"digest",         2},
    {"encrypted",      7},
    {"form-data",      8},
    {"header-set",     6},
    {"mixed",          0},
    {"parallel",       3},
    {"related",        9},
    {"report",        10},
    {"signed",        11},
    {"voice-message", 12},
    {"x-directory2",  13},
};

constexpr Row kMessage[] = {
    {"delivery-status", 5},
    {"external-body",   2},
    {"http",            4},
    {"news",            3},
    {"partial",         1},
    {"rfc822",          0},
};
// clang-format on

static_assert(std::ranges::is_sorted(kMainTypes, {}, &Row::name));
static_assert(std::ranges::is_sorted(kApplication, {}, &Row::name));
static_assert(std::ranges::is_sorted(kMultipart, {}, &Row::name));
static_assert(std::ranges::is_sorted(kMessage, {}, &Row::name));

// Null when the name is in no row.
const Row* Find(std::span<const Row> table, ConstData name) {
    const auto row = std::ranges::lower_bound(table, name.View(), {}, &Row::name);
    return row != table.end() && row->name == name.View() ? &*row : nullptr;
}

struct Subtypes {
    std::span<const Row> table;
    unsigned unknown;
};

Subtypes SubtypesOf(unsigned mainType) {
    switch (mainType) {
        case application:
            return {kApplication, octetStream};
        case multipart:
            return {kMultipart, multipartMixed};
        default:
            return {kMessage, octetStream};
    }
}

}  // namespace

unsigned Number(ConstData mainType, ConstData subtype) {
    const Row* const main = Find(kMainTypes, mainType);
    if (main == nullptr || subtype.Empty()) {
        return other;
    }
    const Subtypes subtypes = SubtypesOf(main->number);
    const Row* const sub = Find(subtypes.table, subtype);
    return sub == nullptr ? subtypes.unknown : main->number * kSubtypes + sub->number;
}

}  // namespace ContentTypes

void ContentTypeReceiver::Reset(unsigned defaultType) {
    for (Token* token : {&mainType_, &subtype_, &boundary_, &type_, &charset_, &micalg_, &protocol_, &name_}) {
        token->Clear();
    }
    lastSpecial_ = 0;
    tokenExpected_ = true;
    parameters_ = false;
    contentType_ = defaultType;
}

void ContentTypeReceiver::StartField() { Reset(ContentTypes::other); }

void ContentTypeReceiver::Special(unsigned char special) {
    lastSpecial_ = special;
    tokenExpected_ = true;
    if (special == ';') {
        parameters_ = true;
        name_.Clear();
    }
}

DataReceiver& ContentTypeReceiver::StartAtom() {
    if (lastSpecial_ == '=') {
        return Value();
    }
    if (!tokenExpected_) {
        return ignored_;
    }
    tokenExpected_ = false;
    switch (lastSpecial_) {
        case 0:
            return mainType_;
        case '/':
            if (parameters_ || !subtype_.Text().Empty()) {
                return ignored_;
            }
            return subtype_;
        case ';':
            return name_;
        default:
            return ignored_;
    }
}

DataReceiver& ContentTypeReceiver::StartQuotedString() {
    if (lastSpecial_ == '=') {
        return Value();
    }
    tokenExpected_ = false;
    return ignored_;
}

DataReceiver& ContentTypeReceiver::Value() {
    if (!tokenExpected_) {
        return ignored_;
    }
    tokenExpected_ = false;
    const std::string_view name = name_.Text().View();
    if (name == "boundary") {
        return boundary_;
    }
    if (name == "type") {
        return type_;
    }
    if (name == "charset") {
        return charset_;
    }
    if (name == "micalg") {
        return micalg_;
    }
    if (name == "protocol") {
        return protocol_;
    }
    return ignored_;
}

void ContentTypeReceiver::EndField() { contentType_ = ContentTypes::Number(MainType(), Subtype()); }
