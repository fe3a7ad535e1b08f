#include "inspectors/symbolic_link.h"

#include <unistd.h>

#include "inspectors/device_files.h"
#include "inspectors/file.h"
#include "inspectors/place_properties.h"

template <>
std::optional<symbolic_link> FromLook<symbolic_link>(FileStat&& look) {
    if (look.GetState() != FileStat::Link && look.GetState() != FileStat::DanglingLink) {
        return std::nullopt;
    }
    char text[4096];
    const ssize_t length = readlink(look.Location().CString(), text, sizeof text - 1);
    if (length <= 0) {
        return std::nullopt;
    }
    return symbolic_link(std::move(look), std::string(text, static_cast<size_t>(length)));
}

namespace {

inspector_string Value(const symbolic_link& link) { return inspector_string(link.Text()); }

boolean ValueAccessible(const symbolic_link& link) { return link.Stat().GetState() == FileStat::Link; }

// What a link leads to stands at the link's own path, and so does the link that an object was reached by.
template <class R, class T>
using OfPlace = PropertyByIndexOfWorld<R, T, AtPlaceOf<R, T>>;
template <class R, class T>
using AsPlace = Cast<R, T, AtPlaceOf<R, T>>;

// clang-format off
Type<symbolic_link>                                                 type;

place_properties::Registrations<symbolic_link>                      placeProperties;
Property<symbolic_link, inspector_string, Value>                    value           {"value", "values"};
Property<symbolic_link, boolean, ValueAccessible>                   valueAccessible {"value accessible", "values accessible"};

NamedGlobalProperty<symbolic_link, AtPath<symbolic_link>>           ofPath          {"symlink", "symlinks", ByValueOnly};
NamedProperty<folder, symbolic_link, Inside<symbolic_link>>         ofFolder        {"symlink", "symlinks", ByValueOnly};
OfPlace<symbolic_link, filesystem_object>                           ofObject        {"symlink", "symlinks", ByValueOnly};
AsPlace<symbolic_link, filesystem_object>                           objectAs        {"symlink", ByValueOnly};
OfPlace<file, symbolic_link>                                        fileOf          {"file", "files", ByValueOnly};
AsPlace<file, symbolic_link>                                        asFile          {"file", ByValueOnly};
OfPlace<folder, symbolic_link>                                      folderOf        {"folder", "folders", ByValueOnly};
AsPlace<folder, symbolic_link>                                      asFolder        {"folder", ByValueOnly};
OfPlace<device_file, symbolic_link>                                 deviceFileOf    {"device file", "device files", ByValueOnly};
AsPlace<device_file, symbolic_link>                                 asDeviceFile    {"device file", ByValueOnly};
OfPlace<fifo_file, symbolic_link>                                   fifoFileOf      {"fifo file", "fifo files", ByValueOnly};
AsPlace<fifo_file, symbolic_link>                                   asFifoFile      {"fifo file", ByValueOnly};
OfPlace<socket_file, symbolic_link>                                 socketFileOf    {"socket file", "socket files", ByValueOnly};
AsPlace<socket_file, symbolic_link>                                 asSocketFile    {"socket file", ByValueOnly};
OfPlace<symbolic_link, symbolic_link>                               symlinkOf       {"symlink", "symlinks", ByValueOnly};
AsPlace<symbolic_link, symbolic_link>                               asSymlink       {"symlink", ByValueOnly};
// clang-format on

}  // namespace
