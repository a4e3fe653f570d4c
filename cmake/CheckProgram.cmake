# Fails the build if a program lacks a protection or has an unwanted import.
#   cmake -DPROGRAM=... -DOBJDUMP=... -P CheckProgram.cmake
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND ${OBJDUMP} -p ${PROGRAM} OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
# Libraries that are loaded with the program. Other libraries are loaded at their first use
# (DelayedLibrary.cmake).
set(system_libraries advapi32 comctl32 gdi32 kernel32 msvcrt ole32 user32)
# Imports of a thread library, which look suspicious to virus scanners.
set(unwanted SetThreadContext SuspendThread OpenProcess SetSystemTime)
# CryptGenRandom creates the secret of the stack protector.
set(wanted DYNAMIC_BASE NX_COMPAT TERMINAL_SERVICE_AWARE CryptGenRandom)

set(wrong "")
foreach(name IN LISTS wanted)
    if(NOT headers MATCHES "[ \t]${name}\n")
        list(APPEND wrong "lacks ${name}")
    endif()
endforeach()
foreach(name IN LISTS unwanted)
    if(headers MATCHES "[ \t]${name}\n")
        list(APPEND wrong "imports ${name}")
    endif()
endforeach()
string(REGEX MATCHALL "DLL Name: [^\n]+" libraries "${headers}")
foreach(library IN LISTS libraries)
    string(REGEX REPLACE "DLL Name: (.*)\\.(dll|DLL)" "\\1" name "${library}")
    string(TOLOWER "${name}" name)
    if(NOT name IN_LIST system_libraries)
        list(APPEND wrong "imports from ${name}")
    endif()
endforeach()
if(wrong)
    list(JOIN wrong ", " wrong)
    message(FATAL_ERROR "${PROGRAM} ${wrong}")
endif()
