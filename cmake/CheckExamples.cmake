# Fails the build if a code example of a document is missing in the tests that compile it. Lines are
# compared without their indentation.
#   cmake -DDOCUMENT=... -DSOURCES=... -DSTAMP=... -P CheckExamples.cmake
cmake_minimum_required(VERSION 3.25)

# Reads a file without indentation. Semicolons and brackets are replaced, because CMake would make
# lists of them.
function(read_plainly file result)
    file(READ ${file} text)
    string(REPLACE ";" "<semicolon>" text "${text}")
    string(REPLACE "[" "<open>" text "${text}")
    string(REPLACE "]" "<close>" text "${text}")
    string(REGEX REPLACE "\n[ ]+" "\n" text "${text}")
    set(${result} "${text}" PARENT_SCOPE)
endfunction()

set(tested "")
foreach(source IN LISTS SOURCES)
    read_plainly(${source} text)
    string(APPEND tested "${text}")
endforeach()
read_plainly(${DOCUMENT} document)
string(REGEX MATCHALL "```cpp\n[^`]+\n```" examples "${document}")
list(LENGTH examples count)
if(count EQUAL 0)
    message(FATAL_ERROR "${DOCUMENT} has no examples")
endif()
foreach(example IN LISTS examples)
    string(REGEX REPLACE "^```cpp(\n.*\n)```$" "\\1" example "${example}")
    string(FIND "${tested}" "${example}" at)
    if(at EQUAL -1)
        string(REPLACE "<semicolon>" ";" example "${example}")
        message(FATAL_ERROR "No test has this example of ${DOCUMENT}:\n${example}")
    endif()
endforeach()
file(TOUCH ${STAMP})
