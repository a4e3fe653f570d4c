// Comic books of vuilen.com: the page shows a reader in an iframe. The reader's folder has a
// "config.xml" that lists the images.
#include "app/form1/form1.h"
#include "base/join.h"
#include "base/text.h"

namespace velvox {

// Success leaves the address box (`linkin`) disabled; only a failure enables it.
void Form1::ComicVuiLen() try {
    ShowStatus("<font face='tahoma' size='2'>Connecting...</font>");
    linkin.Enabled(false);
    std::string page = FetchPage(linkin.Text());
    auto p1 = text::find(page, "FRAMEBORDER='0' src='");
    auto p2 = text::find(page, "'></iframe>", p1);
    link2.Text(std::string(text::slice(page, p1 + 21, (p2 - p1) - 21)));
    const auto q = text::find(link2.Text(), "index.php");
    const std::string base{text::slice(link2.Text(), 1, q - 1)};
    link2.Text(join({text::slice(link2.Text(), 1, q - 1), "config.xml"}));
    page = FetchPage(link2.Text());
    text::Position pos = 1;
    std::int16_t n = text::toInt16(text::splitUpperBound(page, " </page>"));
    std::int32_t k = 1;
    ketqua.Text("");
    do {
        p1 = text::find(page, "<page> ", pos);
        p2 = text::find(page, " </page>", p1);
        n = text::toInt16(n - 1);
        pos = p2;
        const auto name = text::slice(page, p1 + 7, (p2 - p1) - 7);
        // The link is closed with "<a>" instead of "</a>". This old mistake is kept on purpose.
        ketqua.append({"<font face='tahoma' size='2'><a href='", base, name, "'>Download Image ",
                       std::to_string(k), "<a></font><br>"});
        ++k;
        desktop_.yield();
    } while (n != 0);
    ShowStatus(ketqua.Text());
    ketqua.Text("");
} catch (const std::exception&) {
    linkin.Enabled(true);
    ShowStatus("<font face='tahoma' size='2' color='red'>Download Failed !</font>");
}

}  // namespace velvox
