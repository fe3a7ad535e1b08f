#include "inspectors/smbios_catalogue.h"

#include <iterator>

#include "registry/inspector_type_info.h"

namespace {

// A name as a template argument, so that the names that are made of it are made while compiling, each in storage of its
// own.
template <size_t Size>
struct Word {
    char text[Size] = {};
    consteval Word(const char (&literal)[Size]) {  // NOLINT: a literal is a word.
        for (size_t i = 0; i < Size; ++i) {
            text[i] = literal[i];
        }
    }
    constexpr std::string_view View() const { return {text, Size - 1}; }
};

template <Word W>
constexpr auto kPlural = type_names::Join(W.text, "s");
template <Word W>
constexpr auto kDmiType = type_names::Join("dmi ", W.text);

template <Word W>
constexpr SmbValue Field(SmbKind kind, uint8_t offset, uint8_t length = 0) {
    return {W.View(), kPlural<W>.text, kind, offset, length};
}

template <Word W, size_t Count>
constexpr SmbType OnBoth(int type, const SmbValue (&values)[Count]) {
    return {type, Count, W.View(), kPlural<W>.text, kDmiType<W>.text, values};
}
template <Word W, size_t Count>
constexpr SmbType OnSmbiosOnly(int type, const SmbValue (&values)[Count]) {
    return {type, Count, W.View(), kPlural<W>.text, "", values};
}
template <Word W>
constexpr SmbType WithoutFields(int type) {
    return {type, 0, W.View(), kPlural<W>.text, "", nullptr};
}

// clang-format off

constexpr SmbValue smbValueTable_Type0[] = {
    Field<"vendor">                                    (SmbKind::String, 4),
    Field<"bios_version">                              (SmbKind::String, 5),
    Field<"bios_starting_address_segment">             (SmbKind::Word, 6),
    Field<"bios_release_date">                         (SmbKind::String, 8),
    Field<"bios_rom_size">                             (SmbKind::Byte, 9),
    Field<"bios_characteristics">                      (SmbKind::QWord, 10),
    Field<"system_bios_major_release">                 (SmbKind::Byte, 20),
    Field<"system_bios_minor_release">                 (SmbKind::Byte, 21),
    Field<"embedded_controller_firmware_major_release">(SmbKind::Byte, 22),
    Field<"embedded_controller_firmware_minor_release">(SmbKind::Byte, 23),
};

constexpr SmbValue smbValueTable_Type1[] = {
    Field<"manufacturer"> (SmbKind::String, 4),
    Field<"product_name"> (SmbKind::String, 5),
    Field<"version">      (SmbKind::String, 6),
    Field<"serial_number">(SmbKind::String, 7),
    Field<"uuid">         (SmbKind::BinaryString, 8, 16),
    Field<"wake_up_type"> (SmbKind::Byte, 24),
    Field<"sku_number">   (SmbKind::String, 25),
    Field<"family">       (SmbKind::String, 26),
};

constexpr SmbValue smbValueTable_Type2[] = {
    Field<"manufacturer">                      (SmbKind::String, 4),
    Field<"product">                           (SmbKind::String, 5),
    Field<"version">                           (SmbKind::String, 6),
    Field<"serial_number">                     (SmbKind::String, 7),
    Field<"asset_tag">                         (SmbKind::String, 8),
    Field<"feature_flags">                     (SmbKind::Byte, 9),
    Field<"location_in_chassis">               (SmbKind::String, 10),
    Field<"chassis_handle">                    (SmbKind::Word, 11),
    Field<"board_type">                        (SmbKind::Byte, 13),
    Field<"number_of_contained_object_handles">(SmbKind::Byte, 14),
};

constexpr SmbValue smbValueTable_Type3[] = {
    Field<"manufacturer">                   (SmbKind::String, 4),
    Field<"type">                           (SmbKind::Byte, 5),
    Field<"version">                        (SmbKind::String, 6),
    Field<"serial_number">                  (SmbKind::String, 7),
    Field<"asset_tag_number">               (SmbKind::String, 8),
    Field<"bootup_state">                   (SmbKind::Byte, 9),
    Field<"power_supply_state">             (SmbKind::Byte, 10),
    Field<"thermal_state">                  (SmbKind::Byte, 11),
    Field<"security_status">                (SmbKind::Byte, 12),
    Field<"oem_defined">                    (SmbKind::DWord, 13),
    Field<"height">                         (SmbKind::Byte, 17),
    Field<"number_of_power_cords">          (SmbKind::Byte, 18),
    Field<"contained_element_count">        (SmbKind::Byte, 19),
    Field<"contained_element_record_length">(SmbKind::Byte, 20),
};

constexpr SmbValue smbValueTable_Type4[] = {
    Field<"socket_designation">       (SmbKind::String, 4),
    Field<"processor_type">           (SmbKind::Byte, 5),
    Field<"processor_family">         (SmbKind::Byte, 6),
    Field<"processor_manufacturer">   (SmbKind::String, 7),
    Field<"processor_id">             (SmbKind::QWord, 8),
    Field<"processor_version">        (SmbKind::String, 16),
    Field<"voltage">                  (SmbKind::Byte, 17),
    Field<"external_clock">           (SmbKind::Word, 18),
    Field<"max_speed">                (SmbKind::Word, 20),
    Field<"current_speed">            (SmbKind::Word, 22),
    Field<"status">                   (SmbKind::Byte, 24),
    Field<"processor_upgrade">        (SmbKind::Byte, 25),
    Field<"l1_cache_handle">          (SmbKind::Word, 26),
    Field<"l2_cache_handle">          (SmbKind::Word, 28),
    Field<"l3_cache_handle">          (SmbKind::Word, 30),
    Field<"serial_number">            (SmbKind::String, 32),
    Field<"asset_tag">                (SmbKind::String, 33),
    Field<"part_number">              (SmbKind::String, 34),
    Field<"core_count">               (SmbKind::Byte, 35),
    Field<"core_enabled">             (SmbKind::Byte, 36),
    Field<"thread_count">             (SmbKind::Byte, 37),
    Field<"processor_characteristics">(SmbKind::Word, 38),
    Field<"processor_family_2">       (SmbKind::Word, 40),
};

constexpr SmbValue smbValueTable_Type5[] = {
    Field<"error_detecting_method">           (SmbKind::Byte, 4),
    Field<"error_correcting_capability">      (SmbKind::Byte, 5),
    Field<"supported_interleave">             (SmbKind::Byte, 6),
    Field<"current_interleave">               (SmbKind::Byte, 7),
    Field<"maximum_memory_module_size">       (SmbKind::Byte, 8),
    Field<"supported_speeds">                 (SmbKind::Word, 9),
    Field<"supported_memory_types">           (SmbKind::Word, 11),
    Field<"memory_module_voltage">            (SmbKind::Byte, 13),
    Field<"number_of_associated_memory_slots">(SmbKind::Byte, 14),
};

constexpr SmbValue smbValueTable_Type6[] = {
    Field<"socket_designation"> (SmbKind::String, 4),
    Field<"bank_connections">   (SmbKind::Byte, 5),
    Field<"current_speed">      (SmbKind::Byte, 6),
    Field<"current_memory_type">(SmbKind::Word, 7),
    Field<"installed_size">     (SmbKind::Byte, 9),
    Field<"enabled_size">       (SmbKind::Byte, 10),
    Field<"error_status">       (SmbKind::Byte, 11),
};

constexpr SmbValue smbValueTable_Type7[] = {
    Field<"socket_designation">   (SmbKind::String, 4),
    Field<"cache_configuration">  (SmbKind::Word, 5),
    Field<"maximum_cache_size">   (SmbKind::Word, 7),
    Field<"installed_size">       (SmbKind::Word, 9),
    Field<"supported_sram_type">  (SmbKind::Word, 11),
    Field<"current_sram_type">    (SmbKind::Word, 13),
    Field<"cache_speed">          (SmbKind::Byte, 15),
    Field<"error_correction_type">(SmbKind::Byte, 16),
    Field<"system_cache_type">    (SmbKind::Byte, 17),
    Field<"associativity">        (SmbKind::Byte, 18),
};

constexpr SmbValue smbValueTable_Type8[] = {
    Field<"internal_reference_designator">(SmbKind::String, 4),
    Field<"internal_connector_type">      (SmbKind::Byte, 5),
    Field<"external_reference_designator">(SmbKind::String, 6),
    Field<"external_connector_type">      (SmbKind::Byte, 7),
    Field<"port_type">                    (SmbKind::Byte, 8),
};

constexpr SmbValue smbValueTable_Type9[] = {
    Field<"slot_designation">      (SmbKind::String, 4),
    Field<"slot_type">             (SmbKind::Byte, 5),
    Field<"slot_data_bus_width">   (SmbKind::Byte, 6),
    Field<"current_usage">         (SmbKind::Byte, 7),
    Field<"slot_length">           (SmbKind::Byte, 8),
    Field<"slot_id">               (SmbKind::Word, 9),
    Field<"slot_characteristics_1">(SmbKind::Byte, 11),
    Field<"slot_characteristics_2">(SmbKind::Byte, 12),
    Field<"segment_group_number">  (SmbKind::Word, 13),
    Field<"bus_number">            (SmbKind::Byte, 15),
    Field<"device_function_number">(SmbKind::Byte, 16),
};

constexpr SmbValue smbValueTable_Type10[] = {
    Field<"device_type">       (SmbKind::Byte, 4),
    Field<"description_string">(SmbKind::String, 5),
};

constexpr SmbValue smbValueTable_Type11[] = {
    Field<"count"> (SmbKind::Byte, 4),
    Field<"string">(SmbKind::MultipleString, 5),
};

constexpr SmbValue smbValueTable_Type12[] = {
    Field<"count"> (SmbKind::Byte, 4),
    Field<"string">(SmbKind::MultipleString, 5),
};

constexpr SmbValue smbValueTable_Type13[] = {
    Field<"installable_languages">(SmbKind::Byte, 4),
    Field<"flags">                (SmbKind::Byte, 5),
    Field<"reserved">             (SmbKind::BinaryString, 6, 15),
    Field<"current_language">     (SmbKind::String, 21),
};

constexpr SmbValue smbValueTable_Type14[] = {
    Field<"group_name"> (SmbKind::String, 4),
    Field<"item_type">  (SmbKind::Byte, 5),
    Field<"item_handle">(SmbKind::Word, 6),
};

constexpr SmbValue smbValueTable_Type16[] = {
    Field<"location">                       (SmbKind::Byte, 4),
    Field<"use">                            (SmbKind::Byte, 5),
    Field<"memory_error_correction">        (SmbKind::Byte, 6),
    Field<"maximum_capacity">               (SmbKind::DWord, 7),
    Field<"memory_error_information_handle">(SmbKind::Word, 11),
    Field<"number_of_memory_devices">       (SmbKind::Word, 13),
};

constexpr SmbValue smbValueTable_Type17[] = {
    Field<"memory_array_handle">            (SmbKind::Word, 4),
    Field<"memory_error_information_handle">(SmbKind::Word, 6),
    Field<"total_width">                    (SmbKind::Word, 8),
    Field<"data_width">                     (SmbKind::Word, 10),
    Field<"size">                           (SmbKind::Word, 12),
    Field<"form_factor">                    (SmbKind::Byte, 14),
    Field<"device_set">                     (SmbKind::Byte, 15),
    Field<"device_locator">                 (SmbKind::String, 16),
    Field<"bank_locator">                   (SmbKind::String, 17),
    Field<"memory_type">                    (SmbKind::Byte, 18),
    Field<"type_detail">                    (SmbKind::Word, 19),
    Field<"speed">                          (SmbKind::Word, 21),
    Field<"manufacturer">                   (SmbKind::String, 23),
    Field<"serial_number">                  (SmbKind::String, 24),
    Field<"asset_tag">                      (SmbKind::String, 25),
    Field<"part_number">                    (SmbKind::String, 26),
    Field<"attributes">                     (SmbKind::Byte, 27),
};

constexpr SmbValue smbValueTable_Type18[] = {
    Field<"error_type">                (SmbKind::Byte, 4),
    Field<"error_granularity">         (SmbKind::Byte, 5),
    Field<"error_operation">           (SmbKind::Byte, 6),
    Field<"vendor_syndrome">           (SmbKind::DWord, 7),
    Field<"memory_array_error_address">(SmbKind::DWord, 11),
    Field<"device_error_address">      (SmbKind::DWord, 15),
    Field<"error_resolution">          (SmbKind::DWord, 19),
};

constexpr SmbValue smbValueTable_Type19[] = {
    Field<"starting_address">   (SmbKind::DWord, 4),
    Field<"ending_address">     (SmbKind::DWord, 8),
    Field<"memory_array_handle">(SmbKind::Word, 12),
    Field<"partition_width">    (SmbKind::Byte, 14),
};

constexpr SmbValue smbValueTable_Type20[] = {
    Field<"starting_address">                  (SmbKind::DWord, 4),
    Field<"ending_address">                    (SmbKind::DWord, 8),
    Field<"memory_device_handle">              (SmbKind::Word, 12),
    Field<"memory_array_mapped_address_handle">(SmbKind::Word, 14),
    Field<"partition_row_position">            (SmbKind::Byte, 16),
    Field<"interleave_position">               (SmbKind::Byte, 17),
    Field<"interleaved_data_depth">            (SmbKind::Byte, 18),
};

constexpr SmbValue smbValueTable_Type21[] = {
    Field<"type">             (SmbKind::Byte, 4),
    Field<"interface">        (SmbKind::Byte, 5),
    Field<"number_of_buttons">(SmbKind::Byte, 6),
};

constexpr SmbValue smbValueTable_Type22[] = {
    Field<"location">                     (SmbKind::String, 4),
    Field<"manufacturer">                 (SmbKind::String, 5),
    Field<"manufacture_date">             (SmbKind::String, 6),
    Field<"serial_number">                (SmbKind::String, 7),
    Field<"device_name">                  (SmbKind::String, 8),
    Field<"device_chemistry">             (SmbKind::Byte, 9),
    Field<"design_capacity">              (SmbKind::Word, 10),
    Field<"design_voltage">               (SmbKind::Word, 12),
    Field<"sbds_version_number">          (SmbKind::String, 14),
    Field<"maximum_error_in_battery_data">(SmbKind::Byte, 15),
    Field<"sbds_serial_number">           (SmbKind::Word, 16),
    Field<"sbds_manufacture_date">        (SmbKind::Word, 18),
    Field<"sbds_device_chemistry">        (SmbKind::String, 20),
    Field<"design_capacity_multiplier">   (SmbKind::Byte, 21),
    Field<"oem_specific">                 (SmbKind::DWord, 22),
};

constexpr SmbValue smbValueTable_Type23[] = {
    Field<"capabilities">  (SmbKind::Byte, 4),
    Field<"reset_count">   (SmbKind::Word, 5),
    Field<"reset_limit">   (SmbKind::Word, 7),
    Field<"timer_interval">(SmbKind::Word, 9),
    Field<"timeout">       (SmbKind::Word, 11),
};

constexpr SmbValue smbValueTable_Type24[] = {
    Field<"hardware_security_settings">(SmbKind::Byte, 4),
};

constexpr SmbValue smbValueTable_Type25[] = {
    Field<"next_scheduled_power_on_month">       (SmbKind::Byte, 4),
    Field<"next_scheduled_power_on_day_of_month">(SmbKind::Byte, 5),
    Field<"next_scheduled_power_on_hour">        (SmbKind::Byte, 6),
    Field<"next_scheduled_power_on_minute">      (SmbKind::Byte, 7),
    Field<"next_scheduled_power_on_second">      (SmbKind::Byte, 8),
};

constexpr SmbValue smbValueTable_Type26[] = {
    Field<"description">        (SmbKind::String, 4),
    Field<"location_and_status">(SmbKind::Byte, 5),
    Field<"maximum_value">      (SmbKind::Word, 6),
    Field<"minimum_value">      (SmbKind::Word, 8),
    Field<"resolution">         (SmbKind::Word, 10),
    Field<"tolerance">          (SmbKind::Word, 12),
    Field<"accuracy">           (SmbKind::Word, 14),
    Field<"oem_defined">        (SmbKind::DWord, 16),
    Field<"nominal_value">      (SmbKind::Word, 20),
};

constexpr SmbValue smbValueTable_Type27[] = {
    Field<"temperature_probe_handle">(SmbKind::Word, 4),
    Field<"device_type_and_status">  (SmbKind::Byte, 6),
    Field<"cooling_unit_group">      (SmbKind::Byte, 7),
    Field<"oem_defined">             (SmbKind::DWord, 8),
    Field<"nominal_speed">           (SmbKind::Word, 12),
};

constexpr SmbValue smbValueTable_Type28[] = {
    Field<"description">        (SmbKind::String, 4),
    Field<"location_and_status">(SmbKind::Byte, 5),
    Field<"maximum_value">      (SmbKind::Word, 6),
    Field<"minimum_value">      (SmbKind::Word, 8),
    Field<"resolution">         (SmbKind::Word, 10),
    Field<"tolerance">          (SmbKind::Word, 12),
    Field<"accuracy">           (SmbKind::Word, 14),
    Field<"oem_defined">        (SmbKind::DWord, 16),
    Field<"nominal_value">      (SmbKind::Word, 20),
};

constexpr SmbValue smbValueTable_Type29[] = {
    Field<"description">        (SmbKind::String, 4),
    Field<"location_and_status">(SmbKind::Byte, 5),
    Field<"maximum_value">      (SmbKind::Word, 6),
    Field<"minimum_value">      (SmbKind::Word, 8),
    Field<"resolution">         (SmbKind::Word, 10),
    Field<"tolerance">          (SmbKind::Word, 12),
    Field<"accuracy">           (SmbKind::Word, 14),
    Field<"oem_defined">        (SmbKind::DWord, 16),
    Field<"nominal_value">      (SmbKind::Word, 20),
};

constexpr SmbValue smbValueTable_Type30[] = {
    Field<"manufacturer_name">(SmbKind::String, 4),
    Field<"connections">      (SmbKind::Byte, 5),
};

constexpr SmbValue smbValueTable_Type32[] = {
    Field<"reserved">(SmbKind::BinaryString, 4, 6),
};

constexpr SmbValue smbValueTable_Type33[] = {
    Field<"error_type">                (SmbKind::Byte, 4),
    Field<"error_granularity">         (SmbKind::Byte, 5),
    Field<"error_operation">           (SmbKind::Byte, 6),
    Field<"vendor_syndrome">           (SmbKind::DWord, 7),
    Field<"memory_array_error_address">(SmbKind::QWord, 11),
    Field<"device_error_address">      (SmbKind::QWord, 19),
    Field<"error_resolution">          (SmbKind::DWord, 27),
};

constexpr SmbValue smbValueTable_Type34[] = {
    Field<"description"> (SmbKind::String, 4),
    Field<"type">        (SmbKind::Byte, 5),
    Field<"address">     (SmbKind::DWord, 6),
    Field<"address_type">(SmbKind::Byte, 10),
};

constexpr SmbValue smbValueTable_Type35[] = {
    Field<"description">             (SmbKind::String, 4),
    Field<"management_device_handle">(SmbKind::Word, 5),
    Field<"component_handle">        (SmbKind::Word, 7),
    Field<"threshold_handle">        (SmbKind::Word, 9),
};

constexpr SmbValue smbValueTable_Type36[] = {
    Field<"lower_threshold_non_critical">   (SmbKind::Word, 4),
    Field<"upper_threshold_non_critical">   (SmbKind::Word, 6),
    Field<"lower_threshold_critical">       (SmbKind::Word, 8),
    Field<"upper_threshold_critical">       (SmbKind::Word, 10),
    Field<"lower_threshold_non_recoverable">(SmbKind::Word, 12),
    Field<"upper_threshold_non_recoverable">(SmbKind::Word, 14),
};

constexpr SmbValue smbValueTable_Type37[] = {
    Field<"channel_type">        (SmbKind::Byte, 4),
    Field<"maximum_channel_load">(SmbKind::Byte, 5),
    Field<"memory_device_count"> (SmbKind::Byte, 6),
    Field<"memory_device_load">  (SmbKind::Byte, 7),
    Field<"memory_device_handle">(SmbKind::Word, 8),
};

constexpr SmbValue smbValueTable_Type38[] = {
    Field<"interface_type">             (SmbKind::Byte, 4),
    Field<"ipmi_specification_revision">(SmbKind::Byte, 5),
    Field<"i2c_slave_address">          (SmbKind::Byte, 6),
    Field<"nv_storage_device_address">  (SmbKind::Byte, 7),
    Field<"base_address">               (SmbKind::QWord, 8),
};

constexpr SmbValue smbValueTable_Type39[] = {
    Field<"power_unit_group">            (SmbKind::Byte, 4),
    Field<"location">                    (SmbKind::String, 5),
    Field<"device_name">                 (SmbKind::String, 6),
    Field<"manufacturer">                (SmbKind::String, 7),
    Field<"serial_number">               (SmbKind::String, 8),
    Field<"asset_tag_number">            (SmbKind::String, 9),
    Field<"model_part_number">           (SmbKind::String, 10),
    Field<"revision_level">              (SmbKind::String, 11),
    Field<"max_power_capacity">          (SmbKind::Word, 12),
    Field<"power_supply_characteristics">(SmbKind::Word, 14),
    Field<"input_voltage_probe_handle">  (SmbKind::Word, 16),
    Field<"cooling_device_handle">       (SmbKind::Word, 18),
    Field<"input_current_probe_handle">  (SmbKind::Word, 20),
};

constexpr SmbValue smbValueTable_Type40[] = {
    Field<"number_of_additional_information_entries">(SmbKind::Byte, 4),
};

constexpr SmbValue smbValueTable_Type41[] = {
    Field<"reference_designation"> (SmbKind::Byte, 4),
    Field<"device_type">           (SmbKind::Byte, 5),
    Field<"device_type_instance">  (SmbKind::Byte, 6),
    Field<"segment_group_number">  (SmbKind::Word, 7),
    Field<"bus_number">            (SmbKind::Byte, 9),
    Field<"device_function_number">(SmbKind::Byte, 10),
};

// clang-format on

}  // namespace

// clang-format off
constexpr SmbType smbTypeTable[] = {
    OnBoth<"bios_information">                          (0,  smbValueTable_Type0),
    OnBoth<"system_information">                        (1,  smbValueTable_Type1),
    OnBoth<"base_board_information">                    (2,  smbValueTable_Type2),
    OnBoth<"system_enclosure_or_chassis">               (3,  smbValueTable_Type3),
    OnBoth<"processor_information">                     (4,  smbValueTable_Type4),
    OnBoth<"memory_controller_information">             (5,  smbValueTable_Type5),
    OnBoth<"memory_module_information">                 (6,  smbValueTable_Type6),
    OnBoth<"cache_information">                         (7,  smbValueTable_Type7),
    OnBoth<"port_connector_information">                (8,  smbValueTable_Type8),
    OnBoth<"system_slots">                              (9,  smbValueTable_Type9),
    OnBoth<"on_board_devices_information">              (10, smbValueTable_Type10),
    OnSmbiosOnly<"oem_strings">                         (11, smbValueTable_Type11),
    OnSmbiosOnly<"system_configuration_options">        (12, smbValueTable_Type12),
    OnBoth<"bios_language_information">                 (13, smbValueTable_Type13),
    OnBoth<"group_associations">                        (14, smbValueTable_Type14),
    OnBoth<"physical_memory_array">                     (16, smbValueTable_Type16),
    OnBoth<"memory_device">                             (17, smbValueTable_Type17),
    OnBoth<"b32_bit_memory_error_information">          (18, smbValueTable_Type18),
    OnBoth<"memory_array_mapped_address">               (19, smbValueTable_Type19),
    OnBoth<"memory_device_mapped_address">              (20, smbValueTable_Type20),
    OnBoth<"built_in_pointing_device">                  (21, smbValueTable_Type21),
    OnBoth<"portable_battery">                          (22, smbValueTable_Type22),
    OnBoth<"system_reset">                              (23, smbValueTable_Type23),
    OnBoth<"hardware_security">                         (24, smbValueTable_Type24),
    OnBoth<"system_power_controls">                     (25, smbValueTable_Type25),
    OnBoth<"voltage_probe">                             (26, smbValueTable_Type26),
    OnBoth<"cooling_device">                            (27, smbValueTable_Type27),
    OnBoth<"temperature_probe">                         (28, smbValueTable_Type28),
    OnBoth<"electrical_current_probe">                  (29, smbValueTable_Type29),
    OnBoth<"out_of_band_remote_access">                 (30, smbValueTable_Type30),
    OnBoth<"system_boot_information">                   (32, smbValueTable_Type32),
    OnBoth<"b64_bit_memory_error_information">          (33, smbValueTable_Type33),
    OnBoth<"management_device">                         (34, smbValueTable_Type34),
    OnBoth<"management_device_component">               (35, smbValueTable_Type35),
    OnBoth<"management_device_threshold_data">          (36, smbValueTable_Type36),
    OnBoth<"memory_channel">                            (37, smbValueTable_Type37),
    OnBoth<"ipmi_device_information">                   (38, smbValueTable_Type38),
    OnBoth<"system_power_supply">                       (39, smbValueTable_Type39),
    OnBoth<"additional_information">                    (40, smbValueTable_Type40),
    OnBoth<"onboard_devices_extended_information">      (41, smbValueTable_Type41),
    WithoutFields<"inactive">                           (126),
    WithoutFields<"end_of_table">                       (127),
    {-1, 0, {}, "", "", nullptr},
};
// clang-format on

namespace {

constexpr size_t Count(bool fields) {
    size_t count = 0;
    for (const SmbType& type : smbTypeTable) {
        count += !type.IsOnDmi() ? 0 : fields ? type.count : 1;
    }
    return count;
}
static_assert(Count(false) == kDmiTypes && Count(true) == kDmiFields);

constexpr const char* kKindNames[] = {"Byte", "Word", "DWord", "QWord", "String", "BinaryString", "MultipleString"};

constexpr unsigned WidthOf(SmbKind kind) { return 1U << static_cast<unsigned>(kind); }

}  // namespace

const char* NameOf(SmbKind kind) { return kKindNames[static_cast<size_t>(kind)]; }

std::optional<int64_t> IntegerOf(const SmbValue& field, const DmiStructure& structure) {
    if (!IsIntegerKind(field.kind)) {
        return std::nullopt;
    }
    const std::optional<uint64_t> number = structure.Number(field.offset, WidthOf(field.kind));
    return number && *number <= INT64_MAX ? std::optional<int64_t>(*number) : std::nullopt;
}

std::optional<std::string_view> TextOf(const SmbValue& field, const DmiStructure& structure) {
    switch (field.kind) {
        case SmbKind::String:
            return structure.StringAt(field.offset);
        case SmbKind::BinaryString:
            return structure.Bytes(field.offset, field.length);
        default:
            return std::nullopt;
    }
}
