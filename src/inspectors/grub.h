// The configuration of the legacy GRUB as the language sees it.
//
// Every value is a handle on a part of one tree, which lives as long as any of them; none has ties to the file.
#ifndef INSPECTORS_GRUB_H
#define INSPECTORS_GRUB_H

#include <memory>
#include <utility>

#include "foundation/file_location.h"
#include "inspectors/grub_config.h"
#include "registry/inspector_type_info.h"

template <class Part>
class GrubHandle {
public:
    using Record = Part;

    explicit GrubHandle(std::shared_ptr<const Part> part) : part_(std::move(part)) {}

    // A handle on a record inside the one that `whole` is a handle on.
    template <class Whole>
    GrubHandle(const GrubHandle<Whole>& whole, const Part& part) : part_(whole.Shared(), &part) {}

    const Part& operator*() const { return *part_; }
    const Part* operator->() const { return part_.get(); }
    const std::shared_ptr<const Part>& Shared() const { return part_; }

private:
    std::shared_ptr<const Part> part_;
};

using grub_device = GrubHandle<GrubDevice>;
using grub_block_list = GrubHandle<GrubBlockList>;
using grub_file_location = GrubHandle<GrubFileLocation>;
using grub_kernel = GrubHandle<GrubKernel>;
using grub_module = GrubHandle<GrubModule>;
using grub_bootable_image = GrubHandle<GrubBootableImage>;
using grub_image_choice = GrubHandle<GrubImageChoice>;
using grub_color = GrubHandle<GrubColor>;
using grub_color_pair = GrubHandle<GrubColorPair>;
using grub_color_scheme = GrubHandle<GrubColorScheme>;
using grub_config_file = GrubHandle<GrubConfig>;

template <class Handle>
struct GrubTypeBasics : InspectorTypeBasics<Handle, 0> {
    static constexpr unsigned Size = sizeof(Handle);
};

// clang-format off
template <> struct InspectorTypeInfo<grub_device>         : GrubTypeBasics<grub_device>         { static constexpr char Name[] = "grub device"; };
template <> struct InspectorTypeInfo<grub_block_list>     : GrubTypeBasics<grub_block_list>     { static constexpr char Name[] = "grub block list"; };
template <> struct InspectorTypeInfo<grub_file_location>  : GrubTypeBasics<grub_file_location>  { static constexpr char Name[] = "grub file location"; };
template <> struct InspectorTypeInfo<grub_kernel>         : GrubTypeBasics<grub_kernel>         { static constexpr char Name[] = "grub kernel"; };
template <> struct InspectorTypeInfo<grub_module>         : GrubTypeBasics<grub_module>         { static constexpr char Name[] = "grub module"; };
template <> struct InspectorTypeInfo<grub_bootable_image> : GrubTypeBasics<grub_bootable_image> { static constexpr char Name[] = "grub bootable image"; };
template <> struct InspectorTypeInfo<grub_image_choice>   : GrubTypeBasics<grub_image_choice>   { static constexpr char Name[] = "grub image choice"; };
template <> struct InspectorTypeInfo<grub_color>          : GrubTypeBasics<grub_color>          { static constexpr char Name[] = "grub color"; };
template <> struct InspectorTypeInfo<grub_color_pair>     : GrubTypeBasics<grub_color_pair>     { static constexpr char Name[] = "grub color pair"; };
template <> struct InspectorTypeInfo<grub_color_scheme>   : GrubTypeBasics<grub_color_scheme>   { static constexpr char Name[] = "grub color scheme"; };
template <> struct InspectorTypeInfo<grub_config_file>    : GrubTypeBasics<grub_config_file>    { static constexpr char Name[] = "grub config file"; };
// clang-format on

// The configuration that a regular file holds; none where it cannot be read or says something wrong.
std::optional<grub_config_file> ReadGrubConfig(const FileLocation& location);

// The first of the places that has one.
template <class Places>
std::optional<grub_config_file> FirstGrubConfig(const Places& places) {
    for (const auto& place : places) {
        if (std::optional<grub_config_file> found = ReadGrubConfig(FileLocation(place))) {
            return found;
        }
    }
    return std::nullopt;
}

#endif
