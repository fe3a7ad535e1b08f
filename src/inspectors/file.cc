#include "inspectors/file.h"

#include "evaluator/adapters.h"
#include "inspectors/folder.h"
#include "inspectors/place_properties.h"

void FingerprintFile(Fingerprinter& fingerprinter, const filesystem_object& object) {
    const auto add = [&fingerprinter](const auto& field) { fingerprinter.AddData(ConstData(&field, sizeof field)); };
    const struct stat64& record = object.Stat().Target();
    fingerprinter.AddData(ConstData(object.Location().Text()));
    add(record.st_size);
    add(FileTime(record.st_mtim));
    add(object.Stat().GetState());
    add(record.st_mode);
    add(record.st_dev);
}

namespace {

std::optional<integer> Size(const file& f) {
    const struct stat64* record = f.Record();
    return record == nullptr ? std::nullopt : std::optional<integer>(record->st_size);
}

// There is no such notion on this system; the phrase is there so that questions from others can be asked.
std::optional<file> DefaultWebBrowser() { return std::nullopt; }

// clang-format off
Type<file>                                                          type;
Type<application>                                                   applicationType;

NamedGlobalProperty<file, AtPath<file>>                             ofPath              {"file", "files", ByValueOnly};
NamedProperty<folder, file, Inside<file>>                           ofFolder            {"file", "files", ByValueOnly};
NamedGlobalProperty<application, AtPath<application>>               applicationOfPath   {"application", "applications", ByValueOnly};
NamedProperty<folder, application, Inside<application>>             applicationOfFolder {"application", "applications", ByValueOnly};
GlobalProperty<file, DefaultWebBrowser>                             webBrowser          {"default web browser", "default web browsers"};
Property<file, integer, Size>                                       size                {"size", "sizes"};
// clang-format on

}  // namespace
