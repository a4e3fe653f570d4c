// The examples of docs/control-library.md that need no window.
#include <gtest/gtest.h>

#include "controlkit/fast_collection.h"
#include "controlkit/list_item.h"
#include "controlkit/private_scroll.h"
#include "controlkit/sort.h"

namespace velvox {
namespace {

using ControlLibraryExamples = testing::Test;

#include "control_library_examples.inc"

}  // namespace
}  // namespace velvox
