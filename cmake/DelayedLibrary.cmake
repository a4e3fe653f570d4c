# delayed_library(NAME FUNCTION@BYTES...): an import library NAME_delayed of a system DLL that is
# loaded with the first call of one of these functions (base/library_win32.cpp), not with the
# program. What is not named here comes from the toolchain's own library, and CheckProgram fails.
function(delayed_library name)
    string(TOUPPER ${name} dll)
    list(JOIN ARGN "\n" functions)
    set(folder ${CMAKE_BINARY_DIR}/delayed)
    set(library ${folder}/lib${name}_delayed.a)
    file(CONFIGURE OUTPUT ${folder}/${name}.def CONTENT "LIBRARY ${dll}.dll\nEXPORTS\n${functions}\n")
    # In the folder: a path would become part of the names of symbols.
    add_custom_command(OUTPUT ${library}
        COMMAND ${CMAKE_DLLTOOL} --kill-at --input-def ${name}.def --output-delaylib lib${name}_delayed.a
        DEPENDS ${folder}/${name}.def WORKING_DIRECTORY ${folder})
    add_custom_target(${name}_library DEPENDS ${library})
    add_library(${name}_delayed STATIC IMPORTED GLOBAL)
    set_target_properties(${name}_delayed PROPERTIES IMPORTED_LOCATION ${library})
    # --gc-sections does not see that a slot, which is all that a caller names, starts as a
    # reference to its stub.
    list(TRANSFORM ARGN PREPEND "LINKER:--undefined=_")
    target_link_options(${name}_delayed INTERFACE ${ARGN})
    add_dependencies(${name}_delayed ${name}_library)
endfunction()
