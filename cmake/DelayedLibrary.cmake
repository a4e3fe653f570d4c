# delayed_library(NAME FUNCTION@BYTES...): creates NAME_delayed, an import library of a system DLL.
# The DLL is not loaded with the program but at the first call of one of the functions
# (base/library_win32.cpp). A function that is not named comes from the toolchain's own library, and
# then CheckProgram fails.
function(delayed_library name)
    string(TOUPPER ${name} dll)
    list(JOIN ARGN "\n" functions)
    set(folder ${CMAKE_BINARY_DIR}/delayed)
    set(library ${folder}/lib${name}_delayed.a)
    file(CONFIGURE OUTPUT ${folder}/${name}.def CONTENT "LIBRARY ${dll}.dll\nEXPORTS\n${functions}\n")
    # The command runs in the folder, because a path would become part of symbol names.
    add_custom_command(OUTPUT ${library}
        COMMAND ${CMAKE_DLLTOOL} --kill-at --input-def ${name}.def --output-delaylib lib${name}_delayed.a
        DEPENDS ${folder}/${name}.def WORKING_DIRECTORY ${folder})
    add_custom_target(${name}_library DEPENDS ${library})
    add_library(${name}_delayed STATIC IMPORTED GLOBAL)
    set_target_properties(${name}_delayed PROPERTIES IMPORTED_LOCATION ${library})
    # A caller names only the slot of a function. The slot initially refers to the function's stub,
    # which --gc-sections does not see, so the symbols are marked as used.
    list(TRANSFORM ARGN PREPEND "LINKER:--undefined=_")
    target_link_options(${name}_delayed INTERFACE ${ARGN})
    add_dependencies(${name}_delayed ${name}_library)
endfunction()
