// The files that are no files of bytes: devices, fifos and sockets.
#ifndef INSPECTORS_DEVICE_FILES_H
#define INSPECTORS_DEVICE_FILES_H

#include "inspectors/filesystem_object.h"

class device_file : public filesystem_object {
public:
    using filesystem_object::filesystem_object;
    static bool IsKind(const FileStat& look) { return look.IsCharacterDevice() || look.IsBlockDevice(); }
};

class fifo_file : public filesystem_object {
public:
    using filesystem_object::filesystem_object;
    static bool IsKind(const FileStat& look) { return look.IsFifo(); }
};

class socket_file : public filesystem_object {
public:
    using filesystem_object::filesystem_object;
    static bool IsKind(const FileStat& look) { return look.IsSocket(); }
};

template <>
struct InspectorTypeInfo<device_file> : InspectorTypeBasics<device_file, 0> {
    static constexpr char Name[] = "device file";
    static constexpr unsigned Size = sizeof(device_file);
    static constexpr const char* Parent = InspectorTypeInfo<filesystem_object>::Name;
};

template <>
struct InspectorTypeInfo<fifo_file> : InspectorTypeBasics<fifo_file, 0> {
    static constexpr char Name[] = "fifo file";
    static constexpr unsigned Size = sizeof(fifo_file);
    static constexpr const char* Parent = InspectorTypeInfo<filesystem_object>::Name;
};

template <>
struct InspectorTypeInfo<socket_file> : InspectorTypeBasics<socket_file, 0> {
    static constexpr char Name[] = "socket file";
    static constexpr unsigned Size = sizeof(socket_file);
    static constexpr const char* Parent = InspectorTypeInfo<filesystem_object>::Name;
};

// The two parts of a device number: bits 8 to 19, and the low 8 bits below those from 20 up.
constexpr int64_t MajorOf(uint64_t device) { return static_cast<int64_t>(device >> 8 & 0xfff); }
constexpr int64_t MinorOf(uint64_t device) {
    return static_cast<int64_t>((device & 0xff) | (device >> 12 & ~uint64_t{0xff}));
}

#endif
