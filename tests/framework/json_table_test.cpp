// The view of a whole document that tools have.
#include <gtest/gtest.h>
#include <ka/json_table.h>

#include <cerrno>
#include <string>

#include "scratch.h"

namespace {

// One line per item: level, kind, name@offset, value@offset.
std::string listed(const KAJsonParser& parser) {
    std::string all;
    KAJsonTable table(parser);
    uint32_t index = 0;
    for (KaJsonItem item; table.next(&item);) {
        EXPECT_EQ(index++, item.index);
        EXPECT_EQ(item.kind == KaJsonKind::kString || item.kind == KaJsonKind::kNumber,
                  item.value != nullptr);
        all += std::to_string(item.level) + "zbnsao"[static_cast<int>(item.kind)];
        all += " " + std::string(item.name, item.name_length) + "@" + std::to_string(item.name_offset);
        all += " " + (item.value ? std::string(item.value, item.value_length) : "");
        all += "@" + std::to_string(item.value_offset) + "\n";
    }
    return all;
}

TEST(Table, ListsEverythingInFileOrderWithPlaces) {
    Document document(
        R"({"r":{"s":{"i":1,"f":-2.5e3,"t":"a\tb","y":true,"n":false,"z":null},"e":{}},"q":[1]})");
    EXPECT_EQ(
        "1o r@2 @5\n"
        "2o s@7 @10\n"
        "3n i@12 1@15\n"
        "3n f@18 -2.5e3@21\n"
        "3s t@29 a\tb@33\n"
        "3b y@40 @43\n"
        "3b n@49 @52\n"
        "3z z@59 @62\n"
        "2o e@69 @72\n"
        "1a q@77 @80\n",
        listed(document.parser));
}

TEST(Table, ListsRepeatedNamesEachTime) {
    Document document(R"({"r":{"s":{"k":1,"k":2},"s":{}},"r":{},"r":3})");
    EXPECT_EQ("1o r@2 @5\n2o s@7 @10\n3n k@12 1@15\n3n k@18 2@21\n2o s@25 @28\n1o r@33 @36\n1n r@40 3@43\n",
              listed(document.parser));
}

TEST(Table, ListsWhatIsNoScalarWithoutItsContent) {
    constexpr char kText[] = R"({"a":[{"x":1}],"b":{"c":[{"y":1}],"d":{"e":{"z":1},"f":[{"w":1}],"g":2}}})";
    constexpr char kItems[] =
        "1a a@2 @5\n1o b@16 @19\n2a c@21 @24\n2o d@35 @38\n3o e@40 @43\n3a f@52 @55\n3n g@66 2@69\n";
    Document document(kText);
    EXPECT_EQ(kItems, listed(document.parser));
}

// Deep documents are read in another way; they must not look different.
TEST(Table, HasTheSamePlacesInDeepDocuments) {
    const std::string deep = repeat("[", 50) + repeat("]", 50);
    Document document(R"({"r":{"s":{"k":1,"y":true,"o":{}},"a":[],"t":{}},"deep":)" + deep + "}");
    EXPECT_EQ(
        "1o r@2 @5\n2o s@7 @10\n3n k@12 1@15\n3b y@18 @21\n3o o@27 @30\n2a a@35 @38\n2o t@42 @45\n1a deep@50 "
        "@56\n",
        listed(document.parser));
}

TEST(Table, ShowsNamesWithNulWhole) {
    Document document(R"({"a\u0000b":1})");
    EXPECT_EQ(std::string("1n a\0b@2 1@12\n", 14), listed(document.parser));
}

TEST(Table, IsEmptyWithoutADocument) {
    KAJsonParser parser;
    EXPECT_EQ("", listed(parser));
    for (const char* text : {"[]", "7", "{}", "[{\"a\": 1}]"}) {
        Document document(text);
        EXPECT_EQ("", listed(document.parser)) << text;
    }
    Document broken(R"({"r": 1,})");
    EXPECT_EQ("", listed(broken.parser));
}

TEST(TableError, IsNoneAfterSuccess) {
    Document document("{}");
    const KaJsonError error = KAJsonTable(document.parser).error();
    EXPECT_EQ(nullptr, error.reason);
    EXPECT_EQ(0u, error.line);
}

TEST(TableError, HasPlaceAndReason) {
    Document document("{\"a\": 1,\n  \"b\" 2}");
    const KaJsonError error = KAJsonTable(document.parser).error();
    EXPECT_STREQ("missing a ':' after a key", error.reason);
    EXPECT_EQ(2u, error.line);
    EXPECT_EQ(7u, error.column);
    EXPECT_EQ(0, error.system_error);
}

TEST(TableError, HasTheSystemsReasonAndIsGoneWithTheNextFile) {
    KAJsonParser parser;
    {
        const Messages messages;
        EXPECT_EQ(0, parser.parseFile("/missing.json"));
    }
    const KaJsonError error = KAJsonTable(parser).error();
    EXPECT_STREQ("cannot be opened", error.reason);
    EXPECT_EQ(ENOENT, error.system_error);
    EXPECT_EQ(0u, error.line);
    EXPECT_NE(0, parser.parseFile(ScratchFile("{}").path()));
    EXPECT_EQ(nullptr, KAJsonTable(parser).error().reason);
    EXPECT_EQ(0, KAJsonTable(parser).error().system_error);
}

TEST(TableError, HasNoPlaceLeftOverFromTheFileBefore) {
    Document document("[\n1");
    const ScratchFile empty("");
    const Messages messages;
    EXPECT_EQ(0, document.parser.parseFile(empty.path()));
    EXPECT_EQ(": the file is empty\n", messages.without(empty.path()));
    const KaJsonError error = KAJsonTable(document.parser).error();
    EXPECT_EQ(0u, error.line);
    EXPECT_EQ(0u, error.column);
}

TEST(TextPosition, CountsLinesAndBytesFromOne) {
    const char text[] = "ab\n\n\xC3\xA4x\r\ny";
    const struct {
        size_t offset;
        uint32_t line;
        uint32_t column;
    } rows[] = {{0, 1, 1}, {2, 1, 3}, {3, 2, 1}, {4, 3, 1}, {6, 3, 3}, {9, 4, 1}, {10, 4, 2}};
    for (const auto& row : rows) {
        EXPECT_EQ(row.line, ka_text_position(text, row.offset).line) << row.offset;
        EXPECT_EQ(row.column, ka_text_position(text, row.offset).column) << row.offset;
    }
}

}  // namespace
