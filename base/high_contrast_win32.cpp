// A source of its own: a test program is linked with another definition, because no system that
// the tests run on reports high contrast.
#include "base/system_win32.h"

namespace velvox {

bool highContrast() {
    HIGHCONTRASTW wish{};
    wish.cbSize = sizeof wish;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, wish.cbSize, &wish, 0) &&
           (wish.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace velvox
