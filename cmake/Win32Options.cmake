# Flags of the shipped executable.
#
# - _WIN32_WINNT 6.1: newer functions are looked up by name at run time.
# - -mstackrealign: the system guarantees callbacks a 4-byte aligned stack only, GCC assumes 16.
# - Link-time optimisation in one partition: with several this compiler has an internal error.
# - -static: the program imports no DLL of the compiler.
# - Relocations, ASLR (dynamicbase) and NX are the linker's defaults here; they are named so that a
#   change of the defaults does not pass unnoticed.
add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX STRICT
                        _WIN32_WINNT=0x0601 WINVER=0x0601 _WIN32_IE=0x0700)
add_compile_options(-mstackrealign -ffunction-sections -fdata-sections -fstack-protector-strong)
add_compile_definitions($<$<NOT:$<CONFIG:Debug>>:_FORTIFY_SOURCE=2>)
add_link_options(-static -fstack-protector-strong -Wl,--gc-sections
                 -Wl,--dynamicbase -Wl,--nxcompat -Wl,--tsaware -Wl,--no-insert-timestamp
                 -Wl,--major-subsystem-version,6 -Wl,--minor-subsystem-version,1)
option(VELVOX_LTO "Optimise at link time; without it a build takes half as long" ON)
if(VELVOX_LTO)
    add_compile_options(-flto)
    add_link_options(-flto -flto-partition=none)
endif()
set(CMAKE_CXX_FLAGS_MINSIZEREL "-Os -DNDEBUG")
# Debug builds keep their symbols in the program; a release keeps them in a file beside each
# program.
option(VELVOX_SYMBOLS "Keep the symbols of optimised programs in files beside them" OFF)
if(VELVOX_SYMBOLS)
    add_compile_options(-g "-ffile-prefix-map=${CMAKE_SOURCE_DIR}=." "-ffile-prefix-map=${CMAKE_BINARY_DIR}=build")
else()
    add_link_options($<$<CONFIG:MinSizeRel>:-s>)
endif()

# Checks protections and imports of a program after each of its builds.
function(check_program target)
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${target}> -DOBJDUMP=${CMAKE_OBJDUMP}
                -P ${CMAKE_SOURCE_DIR}/cmake/CheckProgram.cmake)
endfunction()
