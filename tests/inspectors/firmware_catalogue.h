// The structure types that firmware may have, as a list of words: the number and name of a type, and its fields, each
// with the letter of its kind, its offset and, for bytes of a fixed length, behind an x the length.
#ifndef TESTS_INSPECTORS_FIRMWARE_CATALOGUE_H
#define TESTS_INSPECTORS_FIRMWARE_CATALOGUE_H

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

inline constexpr const char* kFirmwareCatalogue[] = {
    // clang-format off
    "0 bios_information: vendor S4 bios_version S5 bios_starting_address_segment W6 bios_release_date S8 bios_rom_size B9 bios_characteristics Q10 system_bios_major_release B20 system_bios_minor_release B21 embedded_controller_firmware_major_release B22 embedded_controller_firmware_minor_release B23",
    "1 system_information: manufacturer S4 product_name S5 version S6 serial_number S7 uuid Y8x16 wake_up_type B24 sku_number S25 family S26",
    "2 base_board_information: manufacturer S4 product S5 version S6 serial_number S7 asset_tag S8 feature_flags B9 location_in_chassis S10 chassis_handle W11 board_type B13 number_of_contained_object_handles B14",
    "3 system_enclosure_or_chassis: manufacturer S4 type B5 version S6 serial_number S7 asset_tag_number S8 bootup_state B9 power_supply_state B10 thermal_state B11 security_status B12 oem_defined D13 height B17 number_of_power_cords B18 contained_element_count B19 contained_element_record_length B20",
    "4 processor_information: socket_designation S4 processor_type B5 processor_family B6 processor_manufacturer S7 processor_id Q8 processor_version S16 voltage B17 external_clock W18 max_speed W20 current_speed W22 status B24 processor_upgrade B25 l1_cache_handle W26 l2_cache_handle W28 l3_cache_handle W30 serial_number S32 asset_tag S33 part_number S34 core_count B35 core_enabled B36 thread_count B37 processor_characteristics W38 processor_family_2 W40",
    "5 memory_controller_information: error_detecting_method B4 error_correcting_capability B5 supported_interleave B6 current_interleave B7 maximum_memory_module_size B8 supported_speeds W9 supported_memory_types W11 memory_module_voltage B13 number_of_associated_memory_slots B14",
    "6 memory_module_information: socket_designation S4 bank_connections B5 current_speed B6 current_memory_type W7 installed_size B9 enabled_size B10 error_status B11",
    "7 cache_information: socket_designation S4 cache_configuration W5 maximum_cache_size W7 installed_size W9 supported_sram_type W11 current_sram_type W13 cache_speed B15 error_correction_type B16 system_cache_type B17 associativity B18",
    "8 port_connector_information: internal_reference_designator S4 internal_connector_type B5 external_reference_designator S6 external_connector_type B7 port_type B8",
    "9 system_slots: slot_designation S4 slot_type B5 slot_data_bus_width B6 current_usage B7 slot_length B8 slot_id W9 slot_characteristics_1 B11 slot_characteristics_2 B12 segment_group_number W13 bus_number B15 device_function_number B16",
    "10 on_board_devices_information: device_type B4 description_string S5",
    "11 oem_strings: count B4 string M5",
    "12 system_configuration_options: count B4 string M5",
    "13 bios_language_information: installable_languages B4 flags B5 reserved Y6x15 current_language S21",
    "14 group_associations: group_name S4 item_type B5 item_handle W6",
    "16 physical_memory_array: location B4 use B5 memory_error_correction B6 maximum_capacity D7 memory_error_information_handle W11 number_of_memory_devices W13",
    "17 memory_device: memory_array_handle W4 memory_error_information_handle W6 total_width W8 data_width W10 size W12 form_factor B14 device_set B15 device_locator S16 bank_locator S17 memory_type B18 type_detail W19 speed W21 manufacturer S23 serial_number S24 asset_tag S25 part_number S26 attributes B27",
    "18 b32_bit_memory_error_information: error_type B4 error_granularity B5 error_operation B6 vendor_syndrome D7 memory_array_error_address D11 device_error_address D15 error_resolution D19",
    "19 memory_array_mapped_address: starting_address D4 ending_address D8 memory_array_handle W12 partition_width B14",
    "20 memory_device_mapped_address: starting_address D4 ending_address D8 memory_device_handle W12 memory_array_mapped_address_handle W14 partition_row_position B16 interleave_position B17 interleaved_data_depth B18",
    "21 built_in_pointing_device: type B4 interface B5 number_of_buttons B6",
    "22 portable_battery: location S4 manufacturer S5 manufacture_date S6 serial_number S7 device_name S8 device_chemistry B9 design_capacity W10 design_voltage W12 sbds_version_number S14 maximum_error_in_battery_data B15 sbds_serial_number W16 sbds_manufacture_date W18 sbds_device_chemistry S20 design_capacity_multiplier B21 oem_specific D22",
    "23 system_reset: capabilities B4 reset_count W5 reset_limit W7 timer_interval W9 timeout W11",
    "24 hardware_security: hardware_security_settings B4",
    "25 system_power_controls: next_scheduled_power_on_month B4 next_scheduled_power_on_day_of_month B5 next_scheduled_power_on_hour B6 next_scheduled_power_on_minute B7 next_scheduled_power_on_second B8",
    "26 voltage_probe: description S4 location_and_status B5 maximum_value W6 minimum_value W8 resolution W10 tolerance W12 accuracy W14 oem_defined D16 nominal_value W20",
    "27 cooling_device: temperature_probe_handle W4 device_type_and_status B6 cooling_unit_group B7 oem_defined D8 nominal_speed W12",
    "28 temperature_probe: description S4 location_and_status B5 maximum_value W6 minimum_value W8 resolution W10 tolerance W12 accuracy W14 oem_defined D16 nominal_value W20",
    "29 electrical_current_probe: description S4 location_and_status B5 maximum_value W6 minimum_value W8 resolution W10 tolerance W12 accuracy W14 oem_defined D16 nominal_value W20",
    "30 out_of_band_remote_access: manufacturer_name S4 connections B5",
    "32 system_boot_information: reserved Y4x6",
    "33 b64_bit_memory_error_information: error_type B4 error_granularity B5 error_operation B6 vendor_syndrome D7 memory_array_error_address Q11 device_error_address Q19 error_resolution D27",
    "34 management_device: description S4 type B5 address D6 address_type B10",
    "35 management_device_component: description S4 management_device_handle W5 component_handle W7 threshold_handle W9",
    "36 management_device_threshold_data: lower_threshold_non_critical W4 upper_threshold_non_critical W6 lower_threshold_critical W8 upper_threshold_critical W10 lower_threshold_non_recoverable W12 upper_threshold_non_recoverable W14",
    "37 memory_channel: channel_type B4 maximum_channel_load B5 memory_device_count B6 memory_device_load B7 memory_device_handle W8",
    "38 ipmi_device_information: interface_type B4 ipmi_specification_revision B5 i2c_slave_address B6 nv_storage_device_address B7 base_address Q8",
    "39 system_power_supply: power_unit_group B4 location S5 device_name S6 manufacturer S7 serial_number S8 asset_tag_number S9 model_part_number S10 revision_level S11 max_power_capacity W12 power_supply_characteristics W14 input_voltage_probe_handle W16 cooling_device_handle W18 input_current_probe_handle W20",
    "40 additional_information: number_of_additional_information_entries B4",
    "41 onboard_devices_extended_information: reference_designation B4 device_type B5 device_type_instance B6 segment_group_number W7 bus_number B9 device_function_number B10",
    "126 inactive:",
    "127 end_of_table:",
    // clang-format on
};

struct CatalogueField {
    std::string name;
    char kind;
    int offset;
    int length;
};

struct CatalogueType {
    int number;
    std::string name;
    std::vector<CatalogueField> fields;

    // Whether `dmi` has a type and a phrase for it.
    bool OnDmi() const { return number != 11 && number != 12 && number < 126; }
};

inline std::vector<CatalogueType> FirmwareCatalogue() {
    std::vector<CatalogueType> types;
    for (const char* row : kFirmwareCatalogue) {
        std::istringstream words(row);
        CatalogueType type;
        words >> type.number >> type.name;
        type.name.pop_back();
        for (std::string name, place; words >> name >> place;) {
            const size_t by = place.find('x');
            type.fields.push_back({name, place[0], std::atoi(place.c_str() + 1),
                                   by == std::string::npos ? 0 : std::atoi(place.c_str() + by + 1)});
        }
        types.push_back(type);
    }
    return types;
}

#endif
