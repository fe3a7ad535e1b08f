#include "inspectors/device_files.h"

#include "evaluator/adapters.h"
#include "inspectors/folder.h"
#include "values/integer.h"

namespace {

// What is no character device is a block device, even where the link to it leads nowhere.
inspector_string DeviceType(const device_file& device) {
    return inspector_string(device.Stat().IsCharacterDevice() ? "char" : "block");
}

template <auto Part>
std::optional<integer> DeviceNumber(const device_file& device) {
    const struct stat64* record = device.Record();
    return record == nullptr ? std::nullopt : std::optional<integer>(Part(record->st_rdev));
}

template <class R>
using OfObject = PropertyByIndexOfWorld<R, filesystem_object, AtPlaceOf<R, filesystem_object>>;
template <class R>
using AsKind = Cast<R, filesystem_object, AtPlaceOf<R, filesystem_object>>;

// clang-format off
Type<device_file>                                                   deviceType;
Type<fifo_file>                                                     fifoType;
Type<socket_file>                                                   socketType;

OfObject<device_file>                                               deviceOfObject {"device file", "device files", ByValueOnly};
AsKind<device_file>                                                 asDevice       {"device file", ByValueOnly};
NamedGlobalProperty<device_file, AtPath<device_file>>               deviceOfPath   {"device file", "device files", ByValueOnly};
NamedProperty<folder, device_file, Inside<device_file>>             deviceOfFolder {"device file", "device files", ByValueOnly};
OfObject<fifo_file>                                                 fifoOfObject   {"fifo file", "fifo files", ByValueOnly};
AsKind<fifo_file>                                                   asFifo         {"fifo file", ByValueOnly};
NamedGlobalProperty<fifo_file, AtPath<fifo_file>>                   fifoOfPath     {"fifo file", "fifo files", ByValueOnly};
NamedProperty<folder, fifo_file, Inside<fifo_file>>                 fifoOfFolder   {"fifo file", "fifo files", ByValueOnly};
OfObject<socket_file>                                               socketOfObject {"socket file", "socket files", ByValueOnly};
AsKind<socket_file>                                                 asSocket       {"socket file", ByValueOnly};
NamedGlobalProperty<socket_file, AtPath<socket_file>>               socketOfPath   {"socket file", "socket files", ByValueOnly};
NamedProperty<folder, socket_file, Inside<socket_file>>             socketOfFolder {"socket file", "socket files", ByValueOnly};

Property<device_file, inspector_string, DeviceType>                 typeOfDevice   {"device type", "device types"};
Property<device_file, integer, DeviceNumber<MajorOf>>               major          {"major", "majors"};
Property<device_file, integer, DeviceNumber<MinorOf>>               minor          {"minor", "minors"};
// clang-format on

}  // namespace
