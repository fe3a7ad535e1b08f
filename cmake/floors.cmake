# One object library for each folder of src/, lowest floor first.  A program or a test names the highest floor that
# it stands on and is given the objects of that floor and of all below it.
set(ZENDRY_FLOORS foundation language registry evaluator values inspectors client console
    CACHE INTERNAL "For a project that this one is part of, too")

function(zendry_floor name)
    file(GLOB units CONFIGURE_DEPENDS ${zendry_SOURCE_DIR}/src/${name}/*.cc)
    list(REMOVE_ITEM units ${zendry_SOURCE_DIR}/src/console/main.cc)
    if(units)
        add_library(zendry_${name} OBJECT ${units})
        target_include_directories(zendry_${name} PUBLIC ${zendry_SOURCE_DIR}/src)
    endif()
endfunction()

function(zendry_link_floors target highest)
    target_include_directories(${target} PRIVATE ${zendry_SOURCE_DIR}/src)
    target_compile_features(${target} PRIVATE cxx_std_20)
    set(linked "")
    foreach(floor IN LISTS ZENDRY_FLOORS)
        list(APPEND linked ${floor})
        if(TARGET zendry_${floor})
            target_sources(${target} PRIVATE $<TARGET_OBJECTS:zendry_${floor}>)
        endif()
        if(floor STREQUAL highest)
            break()
        endif()
    endforeach()
    target_link_libraries(${target} PRIVATE ${CMAKE_DL_LIBS} pthread)
    # What the client floor reads its configuration with.
    if("client" IN_LIST linked)
        target_link_libraries(${target} PRIVATE ${INIPARSER_LIBRARY})
    endif()
endfunction()

function(zendry_program target source highest)
    add_executable(${target} ${source})
    zendry_link_floors(${target} ${highest})
endfunction()
