// highContrast() has its own source file so that a test program can link another definition: no
// system that runs the tests reports high contrast.
#include "base/system_win32.h"

namespace velvox {

bool highContrast() {
    HIGHCONTRASTW wish{};
    wish.cbSize = sizeof wish;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, wish.cbSize, &wish, 0) &&
           (wish.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace velvox
