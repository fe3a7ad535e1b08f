#include "client/masthead_maker.h"

#include "foundation/ascii.h"
#include "foundation/file_reader.h"
#include "foundation/file_stat.h"
#include "foundation/line_maker.h"
#include "foundation/multipart_splitter.h"

namespace {

constexpr std::string_view kContentType = "Application/x-Praxel-Site-Masthead";

}  // namespace

MessageReceiver::Body MastheadContentMaker::EndHeaders(const ContentTypeReceiver& type) {
    if (type.ContentType() != ContentTypes::multipartRelated ||
        Ascii::CompareIgnoringCase(type.Type(), ConstData(kContentType)) != 0) {
        throw NotAMasthead();
    }
    return Body::Parts;
}

MessageReceiver& MastheadContentMaker::StartPart(size_t index) {
    if (index == 0) {
        return headerSet_;
    }
    return ignored_;
}

MessageReceiver::Body MastheadMaker::EndHeaders(const ContentTypeReceiver& type) {
    if (type.ContentType() == ContentTypes::multipartSigned) {
        reader_ = &signed_;
    } else {
        reader_ = &content_;
    }
    return reader_->EndHeaders(type);
}

void ReadMasthead(const FileLocation& location, MastheadHeaderReceiver& headers) {
    MastheadMaker masthead(headers);
    MultipartSplitter message(masthead);
    LineMaker lines(message);
    UnixPlatform::FileReadingPath path(location);
    FileReader reader(path);
    unsigned char block[8192];
    lines.Start();
    while (!masthead.IsComplete() && reader.HasData()) {
        Buffer room(block, block + sizeof block);
        reader.Fill(room);
        lines.Data(room.begin, room.write);
    }
    lines.Finish();
    if (!masthead.IsSigned()) {
        throw NotASignedMessage();
    }
}

bool ReadFipsRequirement(const FileLocation& location) {
    Masthead masthead;
    MastheadHeaderReceiver headers(masthead, MastheadHeaderReceiver::cRequireFipsCryptography);
    try {
        if (!FileStat(location).IsRegular()) {
            return false;
        }
        ReadMasthead(location, headers);
        return masthead.requireFipsCryptography != 0;
    } catch (const DebuggableException&) {
        return false;
    }
}
