# The binding of the crypto library: what it is called, where it is looked for, and what is made of the list of its
# functions.
set(ZENDRY_CRYPTO_LIBRARY "libOSLcrypto_1_0_0_4" CACHE STRING "The crypto library, without its suffix")
set(ZENDRY_CRYPTO_FIPS_LIBRARY "libOSLcrypto_1_0_0_1" CACHE STRING "The crypto library for FIPS mode")
set(ZENDRY_CRYPTO_SUFFIX ".so" CACHE STRING "The suffix of both")
set(ZENDRY_CRYPTO_FOLDER "/opt/OSLClient/bin/" CACHE STRING "Where they are looked for when nothing says otherwise")

find_package(OpenSSL 3 REQUIRED COMPONENTS Crypto)

set(ZENDRY_CRYPTO_LIST ${CMAKE_CURRENT_SOURCE_DIR}/support/crypto/names.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${ZENDRY_CRYPTO_LIST})
file(STRINGS ${ZENDRY_CRYPTO_LIST} ZENDRY_CRYPTO_NAMES)
list(LENGTH ZENDRY_CRYPTO_NAMES ZENDRY_CRYPTO_COUNT)

# generated/foundation/crypto_wrappers.h and crypto_names.h
set(names "")
set(wrappers "")
set(place 0)
foreach(name IN LISTS ZENDRY_CRYPTO_NAMES)
    string(APPEND names "    \"${name}\",\n")
    string(APPEND wrappers "inline constexpr auto* Crypto_wrapper_${name} = CryptoForward<${place}, decltype(::${name})>::Call;\n")
    math(EXPR place "${place} + 1")
endforeach()
foreach(header crypto_names crypto_wrappers)
    configure_file(${CMAKE_CURRENT_SOURCE_DIR}/src/foundation/${header}.h.in
                   ${zendry_BINARY_DIR}/generated/foundation/${header}.h @ONLY)
endforeach()

# Lets a target's units include the headers made here, and OpenSSL's for the signatures; nothing is linked.
function(zendry_bind_crypto target)
    target_include_directories(${target} SYSTEM PRIVATE ${zendry_SOURCE_DIR}/support/crypto ${OPENSSL_INCLUDE_DIR})
    target_include_directories(${target} PRIVATE ${zendry_BINARY_DIR}/generated)
    target_compile_definitions(${target} PRIVATE OPENSSL_SUPPRESS_DEPRECATED)
endfunction()
