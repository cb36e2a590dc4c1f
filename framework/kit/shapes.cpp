// How sections and keys are found, and what a document may look like.
#include "kit.h"

using kit::explain;

namespace {

TEST(Keys, AreFoundInAnyOrderAndAgain) {
    explain("a lookup gives the same whatever was looked up before",
            "a file whose keys stand in another order than the library asks for does not load");
    std::string members;
    for (int i = 0; i < 300; ++i)
        members += (i ? ", " : "") + ("\"key" + std::to_string(i) + "\": ") + std::to_string(i);
    const kit::Section section(members);
    for (int i = 299; i >= 0; --i)
        ASSERT_EQ(kit::integer(section.keys, ("key" + std::to_string(i)).c_str()), i);
    for (int i = 0; i < 600; ++i)
        ASSERT_EQ(kit::integer(section.keys, ("key" + std::to_string(i * 7 % 300)).c_str()), i * 7 % 300);
}

TEST(Keys, AreSpeltExactlySo) {
    explain("a key is found by exactly its name: letters of the same case, no part of it, nothing more",
            "the library takes the value of another key, and does not report that its own is missing");
    const kit::Section section(
        R"("Noise": 1, "gain_db": 2, " rate": 3, "a.b": 4, "a": {"c": 5}, "x/y": 6, "z[0]": 7)");
    for (const char* key : {"noise", "NOISE", "Nois", "Noise ", "gain", "gain_db2", "rate", "b", "a.c", "c",
                            "a/c", "x", "y", "z", ""})
        EXPECT_EQ(kit::integer(section.keys, key), kit::kNoInteger) << "\"" << key << "\"";
    EXPECT_EQ(kit::integer(section.keys, "Noise"), 1);
    EXPECT_EQ(kit::integer(section.keys, "gain_db"), 2);
    EXPECT_EQ(kit::integer(section.keys, " rate"), 3);
    EXPECT_EQ(kit::integer(section.keys, "a.b"), 4);
    EXPECT_EQ(kit::integer(section.keys, "x/y"), 6);
    EXPECT_EQ(kit::integer(section.keys, "z[0]"), 7);
}

TEST(Keys, ThatAreMissingLeaveTheOutputAlone) {
    explain("a lookup that finds nothing leaves the output as it was",
            "a field keeps what a lookup in vain has left there, in place of its own value");
    const kit::Section section(R"("text": "x", "number": 1)");
    for (const std::string name : {"missing", "text", "number"}) {
        int integer = 7;
        float real = 7.5F;
        const char* const kept = "kept";
        const char* text = kept;
        const bool is_number = name == "number";
        const bool is_text = name == "text";
        EXPECT_EQ(section.keys.findInt32(name.c_str(), &integer), is_number);
        EXPECT_EQ(section.keys.findFloat(name.c_str(), &real), is_number);
        EXPECT_EQ(section.keys.findCString(name.c_str(), &text), is_text);
        EXPECT_EQ(integer, is_number ? 1 : 7);
        EXPECT_EQ(real, is_number ? 1.0F : 7.5F);
        EXPECT_EQ(text != kept, is_text);
    }
}

TEST(Keys, MayBeEscapedOrBeyondAscii) {
    explain("a name with escapes is the name that they stand for", "a key written so counts as missing");
    const kit::Section section("\"\\u0072ate\": 1, \"a\\\"b\": 2, \"\xC3\xA4\": 3, \"\": 4");
    EXPECT_EQ(kit::integer(section.keys, "rate"), 1);
    EXPECT_EQ(kit::integer(section.keys, "a\"b"), 2);
    EXPECT_EQ(kit::integer(section.keys, "\xC3\xA4"), 3);
    EXPECT_EQ(kit::integer(section.keys, ""), 4);
}

TEST(Keys, WithANulInsideAreNoShorterOnes) {
    explain("a name with \\u0000 inside is equal to no key; or the file is refused",
            "such a name stands for a shorter one, and takes its place");
    kit::Section section(R"("ab\u0000cd": 1, "x": 2, "x\u0000": 3)");
    EXPECT_EQ(kit::integer(section.keys, "ab"), kit::kNoInteger);
    EXPECT_EQ(kit::integer(section.keys, "x"), section.opened.result ? 2 : kit::kNoInteger);
}

TEST(Keys, OfOneNameCountAsTheLastOne) {
    explain("of several equal keys the last one of the file counts, whatever its type",
            "a device runs on the value above, where eboconf and every editor show the one below");
    const kit::Section section(
        R"("k": 1, "other": 5, "k": 2, "t": "a", "t": "b", "i": 1, "i": "text", "s": "x", "s": 7)");
    EXPECT_EQ(kit::integer(section.keys, "k"), 2);
    EXPECT_EQ(kit::text(section.keys, "t"), "b");
    EXPECT_EQ(kit::integer(section.keys, "i"), kit::kNoInteger);
    EXPECT_EQ(kit::text(section.keys, "i"), "text");
    EXPECT_EQ(kit::text(section.keys, "s"), "<none>");
    EXPECT_EQ(kit::integer(section.keys, "other"), 5);
}

TEST(Sections, OfOneNameCountAsTheLastOne) {
    explain("of several equal sections or roots the last one counts, with its own keys alone",
            "a device mixes two versions of a section, where eboconf shows the last");
    kit::Opened opened(R"({"r": {"s": {"k": 1, "only": 1}, "t": {"k": 8}, "s": {"k": 2}},
                           "q": {"s": {"k": 3}}, "q": {"s": {"k": 4}, "u": {"k": 5}}, "q": {"s": {"k": 6}},
                           "w": {"s": {"k": 9}}, "w": 1})");
    KaMetaData keys;
    EXPECT_NE(opened.parser.getOptions("r", "s", &keys), 0);
    EXPECT_EQ(kit::integer(keys, "k"), 2);
    EXPECT_EQ(kit::integer(keys, "only"), kit::kNoInteger);
    EXPECT_NE(opened.parser.getOptions("q", "s", &keys), 0);
    EXPECT_EQ(kit::integer(keys, "k"), 6);
    EXPECT_EQ(opened.parser.getOptions("q", "u", &keys), 0);
    EXPECT_EQ(opened.parser.getOptions("w", "s", &keys), 0);
}

TEST(Sections, AreThoseOfTheirRoot) {
    explain("getOptions gives the section of the root that it is asked for",
            "the playback path runs on the capture path's values: both have an \"anr\"");
    kit::Opened opened(R"({"capture": {"anr": {"k": 1}, "aec": {"k": 2}}, "playback": {"anr": {"k": 3}}})");
    KaMetaData keys;
    EXPECT_NE(opened.parser.getOptions("playback", "anr", &keys), 0);
    EXPECT_EQ(kit::integer(keys, "k"), 3);
    EXPECT_NE(opened.parser.getOptions("capture", "anr", &keys), 0);
    EXPECT_EQ(kit::integer(keys, "k"), 1);
    EXPECT_NE(opened.parser.getOptions("capture", "aec", &keys), 0);
    EXPECT_EQ(kit::integer(keys, "k"), 2);
    EXPECT_EQ(opened.parser.getOptions("playback", "aec", &keys), 0);
    EXPECT_EQ(opened.parser.getOptions("CAPTURE", "anr", &keys), 0);
    EXPECT_EQ(opened.parser.getOptions("capture", "Anr", &keys), 0);
    EXPECT_EQ(opened.parser.getOptions("anr", "capture", &keys), 0);
}

TEST(Sections, ThatAreMissingLeaveTheRecordEmpty) {
    explain("getOptions empties the record when root or section is missing or no object",
            "a missing section is filled with the values of the one before, and nothing is reported");
    kit::Opened opened(
        R"({"r": {"s": {"k": 1, "t": "x"}, "list": [{"k": 2}], "text": "k", "nil": null, "n": 3, "none": {}},
            "a": [], "z": null})");
    const struct {
        const char* root;
        const char* section;
    } rows[] = {{"r", "missing"}, {"missing", "s"}, {"r", "list"}, {"r", "text"}, {"r", "nil"},
                {"r", "n"},       {"a", "s"},       {"z", "s"},    {"s", "k"},    {"", ""}};
    for (const auto& row : rows) {
        KaMetaData keys;
        EXPECT_NE(opened.parser.getOptions("r", "s", &keys), 0);
        EXPECT_EQ(opened.parser.getOptions(row.root, row.section, &keys), 0)
            << row.root << "." << row.section;
        EXPECT_EQ(kit::integer(keys, "k"), kit::kNoInteger) << row.root << "." << row.section;
        EXPECT_EQ(kit::text(keys, "t"), "<none>") << row.root << "." << row.section;
    }
    KaMetaData keys;
    EXPECT_NE(opened.parser.getOptions("r", "s", &keys), 0);
    EXPECT_NE(opened.parser.getOptions("r", "none", &keys), 0) << "an empty section is one";
    EXPECT_EQ(kit::integer(keys, "k"), kit::kNoInteger);
}

TEST(Sections, HoldTheirOwnKeysAlone) {
    explain(
        "a record holds the keys of its section: none of an object inside, of the root or of another section",
        "a key that is missing is taken from somewhere else in the file");
    kit::Opened opened(
        R"({"k0": 1, "r": {"k1": 2, "s": {"k2": 3, "inner": {"k3": 4}, "list": [{"k4": 5}]},
             "t": {"k5": 6}}})");
    KaMetaData keys;
    opened.parser.getOptions("r", "s", &keys);
    for (const char* key : {"k0", "k1", "k3", "k4", "k5", "inner", "list", "s", "r"})
        EXPECT_EQ(kit::integer(keys, key), kit::kNoInteger) << key;
    EXPECT_EQ(kit::integer(keys, "k2"), 3);
}

TEST(Sections, OfARecordThatWasNeverFilledAreEmpty) {
    explain("a new KaMetaData holds nothing",
            "a section reader goes on with what happens to lie on its stack");
    const KaMetaData keys;
    EXPECT_EQ(kit::integer(keys, "k"), kit::kNoInteger);
    EXPECT_EQ(kit::real(keys, "k"), kit::kNoReal);
    EXPECT_EQ(kit::text(keys, "k"), "<none>");
}

TEST(Nulls, AreNothingToFind) {
    explain("a null key, root or section is found nowhere, and a null output is left alone: result 0",
            "a host that asks for a section by a name it does not have crashes in the framework");
    kit::Opened opened(
        R"-({"r": {"s": {"k": 1, "(null)": 2, "": 3}, "": {"k": 4}}, "": {"s": {"k": 5}},
             "(null)": {"s": {}}})-");
    KaMetaData keys;
    EXPECT_EQ(opened.parser.getOptions("r", "s", nullptr), 0);
    EXPECT_EQ(opened.parser.getOptions("missing", "s", nullptr), 0);
    EXPECT_EQ(opened.parser.getOptions(nullptr, nullptr, nullptr), 0);
    for (const auto& [root, section] :
         {std::pair<const char*, const char*>{nullptr, "s"}, {"r", nullptr}, {nullptr, nullptr}}) {
        opened.parser.getOptions("r", "s", &keys);
        EXPECT_EQ(opened.parser.getOptions(root, section, &keys), 0);
        EXPECT_EQ(kit::integer(keys, "k"), kit::kNoInteger);
    }
    opened.parser.getOptions("r", "s", &keys);
    EXPECT_EQ(kit::integer(keys, nullptr), kit::kNoInteger);
    EXPECT_EQ(kit::real(keys, nullptr), kit::kNoReal);
    EXPECT_EQ(kit::text(keys, nullptr), "<none>");
    KAJsonParser parser;
    EXPECT_EQ(parser.parseFile(nullptr), 0);
}

TEST(Documents, OfAnotherShapeHaveNoSections) {
    explain("a document that is JSON but no object opens, and every section of it is missing",
            "one host says nothing and gives no tree, the other names the section that is missing");
    for (const char* text : {"[]", "[{\"r\": {\"s\": {\"k\": 1}}}]", "5", "\"r\"", "null", "true", "{}",
                             "{\"r\": []}", "{\"r\": {}}", " [ ] "}) {
        kit::Opened opened(text);
        EXPECT_NE(opened.result, 0) << text;
        KaMetaData keys;
        EXPECT_EQ(opened.parser.getOptions("r", "s", &keys), 0) << text;
        EXPECT_EQ(kit::integer(keys, "k"), kit::kNoInteger) << text;
    }
}

TEST(Documents, ThatAreJsonAreTaken) {
    explain("parseFile takes every JSON text: blanks, nested values, all types, many and long ones",
            "a file that eboconf check takes does not load");
    for (const char* text :
         {"{\"r\":{\"s\":{}}}", " \t\r\n{\r\n\"r\"\t:\n{ } }\r\n\t ", "[[[[[[[[1]]]]]]]]",
          "{\"a\":[1,-2.5e+3,\"x\",true,false,null,{},[]]}", "[\"\x7F\"]", "[0,-0,0.0,1E5,1e-5]"})
        EXPECT_TRUE(kit::takes(text)) << text;
    std::string many = "{\"r\": {";
    for (int i = 0; i < 500; ++i)
        many += "\"section" + std::to_string(i) + "\": {\"k\": " + std::to_string(i) + "}, ";
    kit::Opened opened(many + "\"last\": {\"k\": 500, \"number\": 0." + std::string(400, '3') + "}}}");
    KaMetaData keys;
    EXPECT_NE(opened.parser.getOptions("r", "section250", &keys), 0);
    EXPECT_EQ(kit::integer(keys, "k"), 250);
    EXPECT_NE(opened.parser.getOptions("r", "last", &keys), 0);
    EXPECT_EQ(kit::integer(keys, "k"), 500);
    EXPECT_EQ(kit::real(keys, "number"), 1.0F / 3);
}

TEST(Documents, ThatAreNotJsonAreRefused) {
    // Single quotes, NaN, line breaks in strings and the like are left to the framework's JSON library.
    explain("parseFile refuses what has no meaning in JSON",
            "a mistake is loaded as something on this device, and refused by eboconf and by the next device");
    for (const char* text :
         {" ",           "{",           "{\"r\"",    "{\"r\": }",  "{\"r\": 1,}",   "[1,]",
          "[1 2]",       "{r: 1}",      "{1: 2}",    "[01]",       "[+1]",          "[.5]",
          "[1e]",        "[1e+]",       "[-]",       "[0x10]",     "[True]",        "[nul]",
          "[\"\\x41\"]", "[\"\\u12\"]", "[\"a]",     "{} // note", "/* note */ {}", "{} {}",
          "{}]",         "[]]",         "{\"a\" 1}", "{,}",        "[1}",           "\xFF\xFE[\0]"})
        EXPECT_FALSE(kit::takes(text)) << text;
    EXPECT_FALSE(kit::takes("{\"r\": {\"s\": {\"k\": 1}}}" + std::string(3, '\0'))) << "zeros after the text";
    EXPECT_FALSE(kit::takes(std::string("[1,\0 2]", 7))) << "a zero within the text";
    EXPECT_FALSE(kit::takes(std::string(64, '\0'))) << "nothing but zeros";
}

TEST(Documents, ThatAreCutOffAreRefused) {
    explain("parseFile refuses a file that ends too early, wherever that is",
            "a file torn by a power cut is loaded as far as it goes");
    const std::string whole = R"({"r": {"s": {"a": 12, "b": "text\n", "c": [1, {"d": null}]}, "t": {}}})";
    for (size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(kit::takes(whole.substr(0, length))) << whole.substr(0, length);
    EXPECT_TRUE(kit::takes(whole));
}

}  // namespace
