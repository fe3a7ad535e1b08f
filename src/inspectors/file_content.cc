#include "inspectors/file_content.h"

#include <algorithm>
#include <cstring>

#include "evaluator/adapters.h"
#include "evaluator/inspector_context.h"
#include "foundation/ascii.h"
#include "foundation/file_reader.h"
#include "values/byte_search.h"
#include "values/integer.h"

BlockSearch::BlockSearch(std::string_view sought)
    : sought_(sought),
      overlap_(sought.size() - 1),
      memory_(std::make_unique_for_overwrite<unsigned char[]>(overlap_ + kBlock)) {}

bool BlockSearch::Take(size_t count) {
    unsigned char* const block = memory_.get() + overlap_;
    const ConstData text(block - carried_, block + count);
    if (FindBytes(text.View(), sought_) != std::string_view::npos) {
        return true;
    }
    carried_ = std::min(text.Length(), overlap_);
    std::memmove(block - carried_, text.end - carried_, carried_);
    return false;
}

namespace {

void ApplyInPlace(DataFilter&& filter, ConstData block) {
    auto* const bytes = const_cast<unsigned char*>(block.begin);  // the search's own memory
    Buffer out(bytes, bytes + block.Length());
    filter.Filter(block, out);
}

void ChangeCase(file_content::Mode mode, ConstData block) {
    switch (mode) {
        case file_content::Mode::Plain:
            break;
        case file_content::Mode::Uppercase:
            ApplyInPlace(Ascii::CaseRaisingFilter(), block);
            break;
        case file_content::Mode::Lowercase:
            ApplyInPlace(Ascii::CaseLoweringFilter(), block);
            break;
    }
}

// The next block; none at the end of the file, also where that comes before the length that the file claims.
std::optional<ConstData> NextBlock(FileReadingLoop& loop) {
    if (!loop.HasBytesRemaining()) {
        return std::nullopt;
    }
    try {
        return loop.Fill();
    } catch (const FileReadingLoopEndOfFileError&) {
        return std::nullopt;
    }
}

}  // namespace

std::optional<boolean> file_content::Contains(std::string_view sought) const {
    if (sought.empty()) {
        return true;
    }
    if (sought.size() > BlockSearch::kBlock) {
        return std::nullopt;
    }
    BlockSearch search(sought);
    UnixPlatform::FileReadingPath path(file_->Location());
    FileReadingLoop loop(path, search.Block());
    while (const std::optional<ConstData> block = NextBlock(loop)) {
        ChangeCase(mode_, *block);
        if (search.Take(block->Length())) {
            return true;
        }
        CheckForInterruption();
    }
    return false;
}

namespace {

file_content ContentOf(const file& f) { return file_content(f); }

file_content AsUppercase(const file_content& content) {
    return file_content(content.File(), file_content::Mode::Uppercase);
}
file_content AsLowercase(const file_content& content) {
    return file_content(content.File(), file_content::Mode::Lowercase);
}

std::optional<boolean> ContentContains(const file_content& content, const inspector_string& sought) {
    return content.Contains(sought.View());
}

// The index is counted from 0.  A file that has become shorter since it was looked at has no such byte.
std::optional<integer> ByteOfFile(const integer& n, const file& f) {
    const struct stat64* record = f.Record();
    if (record == nullptr || n.Value() >= record->st_size) {
        return std::nullopt;
    }
    UnixPlatform::FileReadingPath path(f.Location());
    FileReader reader(path, static_cast<uint64_t>(n.Value()));
    unsigned char byte;
    try {
        reader.Read(&byte, &byte + 1);
    } catch (const EndOfFileError&) {
        return std::nullopt;
    }
    return integer(byte);
}

// The digest is the host's affair.  A host without one and no host at all are told alike.
inspector_string FileSHA1(const file& f) {
    const auto& crypto = ContextInterface<CryptoInspectorContext, NoInspectorContext>();
    if (crypto.sha1OfFile == nullptr) {
        throw NoInspectorContext();
    }
    return crypto.sha1OfFile(f.Location());
}

// clang-format off
Type<file_content>                                                  type;

Property<file, inspector_string, FileSHA1>                          sha1            {"sha1", "sha1s", ByValueOnly};
Property<file, file_content, ContentOf>                             content         {"content", "contents"};
NumberedProperty<file, integer, ByteOfFile>                         byteOfFile      {"byte", "bytes", ByValueOnly};
Cast<file_content, file_content, AsUppercase>                       uppercase       {"uppercase"};
Cast<file_content, file_content, AsLowercase>                       lowercase       {"lowercase"};
RelationContains<file_content, inspector_string, ContentContains>   contains        {ByValueOnly};
// clang-format on

}  // namespace
