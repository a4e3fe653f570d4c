# Fails the build if a source includes a folder that it may not use. Each row of the table names a
# folder and the folders that its sources may include besides itself.
#   cmake -DROOT=... -DSTAMP=... -P CheckIncludes.cmake
cmake_minimum_required(VERSION 3.25)
set(layers
    "base"
    "controlkit : base"
    "controls : base"
    "catchers : base app/form1"
    "app/form1 : base controls"
    "app/net : base app/form1"
    "app/pane : base app/form1"
    "app/browser : base app/form1 app/net"
    "app/window : base controls catchers app/form1 app/net app/pane app/browser"
    "gallery : base controls controlkit app/form1")
# Headers that every source may include: names of resources, and the version.
set(everywhere "app/resource.h" "app/version.h")

set(wrong "")
foreach(row IN LISTS layers)
    string(REGEX MATCHALL "[a-z0-9_/]+" folders "${row}")
    list(GET folders 0 folder)
    list(JOIN folders "|" allowed)
    file(GLOB_RECURSE sources RELATIVE ${ROOT} ${ROOT}/${folder}/*.h ${ROOT}/${folder}/*.cpp)
    foreach(source IN LISTS sources)
        file(STRINGS ${ROOT}/${source} includes REGEX "^#include \"")
        foreach(include IN LISTS includes)
            string(REGEX REPLACE "^#include \"(.*)\".*" "\\1" path "${include}")
            if(NOT path MATCHES "^(${allowed})/" AND NOT path IN_LIST everywhere)
                string(APPEND wrong "\n  ${source} includes ${path}")
            endif()
        endforeach()
    endforeach()
endforeach()
if(wrong)
    message(FATAL_ERROR "Includes that cmake/CheckIncludes.cmake does not allow:${wrong}")
endif()
file(TOUCH ${STAMP})
