// The content of a file as a thing of its own, for looking what is in it without holding it.
#ifndef INSPECTORS_FILE_CONTENT_H
#define INSPECTORS_FILE_CONTENT_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

#include "foundation/const_data.h"
#include "inspectors/file.h"

// Looks for a run of bytes in a text that comes in blocks, also where it lies across their borders.
class BlockSearch {
public:
    // Of the text at a time, and the most that can be looked for.
    static constexpr size_t kBlock = 32768;

    // `sought` has 1 to kBlock bytes and must outlive this.  Throws std::bad_alloc.
    explicit BlockSearch(std::string_view sought);

    // Where the next block is to be put.
    Buffer Block() const { return {memory_.get() + overlap_, memory_.get() + overlap_ + kBlock}; }

    // Whether it has been found when the next `count` bytes of the text stand in the block.
    bool Take(size_t count);

private:
    std::string_view sought_;
    size_t overlap_;      // as much of the text before a block as a find may begin in
    size_t carried_ = 0;  // of these, the bytes that are there, just before the block
    std::unique_ptr<unsigned char[]> memory_;
};

// Made without touching the file.  The file's value is that of the phrase's object, which outlives this one.
class file_content {
public:
    enum class Mode : unsigned char { Plain, Uppercase, Lowercase };

    explicit file_content(const file& of, Mode mode = Mode::Plain) : file_(&of), mode_(mode) {}

    const file& File() const { return *file_; }
    Mode GetMode() const { return mode_; }

    // Whether `sought` occurs in the file's bytes in their present case; it is itself taken as it stands.  The empty
    // text occurs in every file and none is opened for it; one of more than BlockSearch::kBlock bytes has no answer.
    // Throws what reading throws, and what an interruption of the evaluation throws.
    std::optional<boolean> Contains(std::string_view sought) const;

private:
    const file* file_;
    Mode mode_;
};

template <>
struct InspectorTypeInfo<file_content> : InspectorTypeBasics<file_content> {
    static constexpr char Name[] = "file content";
    static constexpr unsigned Size = sizeof(file_content);

    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        const auto& content = *static_cast<const file_content*>(value);
        const file_content::Mode mode = content.GetMode();
        FingerprintFile(fingerprinter, content.File());
        fingerprinter.AddData(ConstData(&mode, sizeof mode));
    }
};

#endif
