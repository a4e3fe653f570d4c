#include "app/browser/document_facts.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

TEST(DocumentFactsTest, ReadsTypeAndLengthFromAnyHeader) {
    const struct {
        const char* header;
        DocumentFacts facts;
    } rows[] = {
        {"HTTP/1.1 200 OK\r\nContent-Type: text/html; charset=utf-8\r\nContent-Length: 12\r\n\r\n",
         {"text/html", 12}},
        {"content-length:7\ncontent-TYPE:\tvideo/mp4 ", {"video/mp4", 7}},
        {"Content-Length: 12x\r\nContent-Type:\r\n", {}},
        {"Content-Length: 99999999999999999999999\r\n", {}},
        {"X-Content-Length: 5\r\nContent-Length\r\n: 4\r\n", {}},
    };
    for (const auto& row : rows) EXPECT_EQ(factsOfHeader(row.header), row.facts) << row.header;
}

TEST(DocumentFactsTest, WritesSizesInGroupsOfThree) {
    EXPECT_EQ(sizeText({}), "");
    EXPECT_EQ(sizeText(1), "1 byte");
    EXPECT_EQ(sizeText(999), "999 bytes");
    EXPECT_EQ(sizeText(1234567), "1,234,567 bytes");
}

}  // namespace
}  // namespace velvox
