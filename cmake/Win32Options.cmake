# Flags of the shipped executable.
#
# - _WIN32_WINNT 6.1: what is newer is looked up by name.
# - -mstackrealign: the system promises callbacks a 4-byte aligned stack, GCC assumes 16.
# - Link-time optimisation in one partition: with several this compiler fails internally.
# - A full -static is what keeps libwinpthread out of the imports.
# - Relocations, ASLR (dynamicbase) and NX are the linker's defaults here; they are named so that a
#   change of the defaults does not pass unnoticed.
add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX STRICT
                        _WIN32_WINNT=0x0601 WINVER=0x0601 _WIN32_IE=0x0700)
add_compile_options(-mstackrealign -flto -ffunction-sections -fdata-sections)
add_link_options(-flto -flto-partition=none -static -s -Wl,--gc-sections
                 -Wl,--dynamicbase -Wl,--nxcompat -Wl,--no-insert-timestamp
                 -Wl,--major-subsystem-version,6 -Wl,--minor-subsystem-version,1)
set(CMAKE_CXX_FLAGS_MINSIZEREL "-Os -DNDEBUG")
