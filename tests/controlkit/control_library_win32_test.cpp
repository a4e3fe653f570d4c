// The examples of docs/control-library.md that need Windows.
#include <gtest/gtest.h>

#include "base/com_win32.h"
#include "controlkit/file_win32.h"
#include "controlkit/gradient.h"
#include "controlkit/scroll_container_win32.h"
#include "controlkit/sort.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

class ControlLibraryExamples : public testing::Test {
 protected:
    ControlLibraryExamples() { SetWindowLongW(picture, GWL_STYLE, WS_CHILD | WS_VISIBLE); }

    const OleScope com;
    const TestForm owner{{0, 0, 300, 300}};
    const TestForm content{{0, 0, 600, 400}};
    const HWND form = owner.handle();
    const HWND picture = content.handle();
    const WindowDc dc{form};
    const HDC target = dc.get();
};

#include "control_library_examples.inc"

}  // namespace
}  // namespace velvox
