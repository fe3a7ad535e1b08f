#include "inspectors/filesystem_object.h"

#include "inspectors/mode.h"
#include "inspectors/place_properties.h"

namespace {

std::optional<mode> Mode(const filesystem_object& object) {
    const struct stat64* record = object.Record();
    return record == nullptr ? std::nullopt : std::optional<mode>(record->st_mode);
}

template <unsigned Bit>
std::optional<boolean> Has(const filesystem_object& object) {
    const struct stat64* record = object.Record();
    return record == nullptr ? std::nullopt : std::optional<boolean>((record->st_mode & Bit) != 0);
}

// The three bits that begin at Shift, as a number.
template <unsigned Shift>
std::optional<integer> Mask(const filesystem_object& object) {
    const struct stat64* record = object.Record();
    return record == nullptr ? std::nullopt : std::optional<integer>(record->st_mode >> Shift & 7);
}

// clang-format off
Type<filesystem_object>                                             type;

place_properties::Registrations<filesystem_object>                  placeProperties;

Property<filesystem_object, mode, Mode>                             modeOf       {"mode", "modes"};
Property<filesystem_object, boolean, Has<S_IRUSR>>                  userRead     {"user read", "user reads"};
Property<filesystem_object, boolean, Has<S_IWUSR>>                  userWrite    {"user write", "user writes"};
Property<filesystem_object, boolean, Has<S_IXUSR>>                  userExecute  {"user execute", "user executes"};
Property<filesystem_object, boolean, Has<S_IRGRP>>                  groupRead    {"group read", "group reads"};
Property<filesystem_object, boolean, Has<S_IWGRP>>                  groupWrite   {"group write", "group writes"};
Property<filesystem_object, boolean, Has<S_IXGRP>>                  groupExecute {"group execute", "group executes"};
Property<filesystem_object, boolean, Has<S_IROTH>>                  otherRead    {"other read", "other reads"};
Property<filesystem_object, boolean, Has<S_IWOTH>>                  otherWrite   {"other write", "other writes"};
Property<filesystem_object, boolean, Has<S_IXOTH>>                  otherExecute {"other execute", "other executes"};
Property<filesystem_object, boolean, Has<S_ISUID>>                  setUid       {"setuid", "setuids"};
Property<filesystem_object, boolean, Has<S_ISGID>>                  setGid       {"setgid", "setgids"};
Property<filesystem_object, integer, Mask<6>>                       userMask     {"user mask", "user masks"};
Property<filesystem_object, integer, Mask<3>>                       groupMask    {"group mask", "group masks"};
Property<filesystem_object, integer, Mask<0>>                       otherMask    {"other mask", "other masks"};
// clang-format on

}  // namespace
