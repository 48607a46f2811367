#include "Failure.h"
#include "File.h"
#include "NumberText.h"
#include "clsINI.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <limits>
#include <random>
#include <sstream>
#include <utility>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace morvane {
namespace {

using namespace std::string_literals;

constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();

class IniTest : public testing::Test {
  protected:
    IniTest() { std::filesystem::create_directory(Folder); }
    ~IniTest() override { std::filesystem::remove_all(Folder); }

    [[nodiscard]] std::string Path(const std::string& name = "test.ini") const {
        return (Folder / name).string();
    }
    std::string Written(const std::string& text) {
        std::ofstream(Path(), std::ios::binary) << text;
        return Path();
    }
    [[nodiscard]] std::string Content(const std::string& name = "test.ini") const {
        std::ostringstream text;
        text << std::ifstream(Path(name), std::ios::binary).rdbuf();
        return text.str();
    }
    clsINI Loaded(const std::string& text) {
        clsINI ini(Box());
        ini.LoadINI(Written(text));
        return ini;
    }
    clsINI::ShowMessage Box() {
        return [this](const std::string& title, const std::string& text) { Boxes.emplace_back(title, text); };
    }

    std::filesystem::path Folder =
        std::filesystem::temp_directory_path() / ("ini_tests_" + std::to_string(std::random_device()()));
    std::vector<std::pair<std::string, std::string>> Boxes;
};

/// What a document answers: "[section]" and "<key=value>" in its order, the value being that found by name.
std::string Listing(const clsINI& ini) {
    std::string text;
    for (std::int32_t s = 0; s < ini.NumberOfSections(); ++s) {
        const std::string section = ini.SectionName(s);
        text += "[" + section + "]";
        for (std::int32_t k = 0; k < ini.NumberOfKeys(section); ++k) {
            const std::string key = ini.KeyName(section, k);
            text += "<" + key + "=" + ini.ReadString(section, key, "none") + ">";
        }
    }
    return text;
}

template <typename Call>
std::int32_t ErrorOf(Call call, const std::string& description) {
    try {
        call();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Source, "clsINI");
        EXPECT_EQ(failure.Description, description);
        return failure.Number;
    }
    return 0;
}

TEST_F(IniTest, LinesBecomeSectionsAndKeys) {
    const std::string chunk(65536, 'v');
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", ""},
        {"[A]\r\nx=1\r\n\r\n;x=2\r\n[B]\r\ny=2=3", "[A]<x=1>[B]<y=2=3>"},
        {"[A]\rx=1\r\ry=2\r", "[A]<x=1><y=2>"},
        {"[A]\nx=1\ny=2\n", "[A]\nx=1\ny=2]"}, // one line, a header
        {"[A]\r\n\nx=1\r\ny=\n2\r\r\nz=3", "[A]<\nx=1><y=\n2><z=3>"},
        {"[A]\r\nkey = value\r\n=v\r\nk=\r\n   \r\nword\r\n", "[A]<=v><k=><key = value>"},
        {"[A]\r\nx=1;y\r\n #x=2\r\n;\r\n ;z=3", "[A]< #x=2>< ;z=3><x=1;y>"},
        {"[S]  \r\n [S]\r\n[\r\n[]\r\n[x\r\n", "[S] ][][][]"}, // whatever ends a header is dropped
        {"x=1\r\n[A]\r\ny=2", "[A]<y=2>"},
        {"[S]\r\na=1\r\n[S]\r\na=2\r\n[s]\r\nA=3\r\nA =4", "[S]<a=1>[S]<a=1>[s]<A=3><A =4>"},
        {"[A]\r\nx=1\r\nx=2\r\nx=3", "[A]<x=1><x=1><x=1>"},
        {"[A]\r\n10=\r\nb=\r\n2=\r\na=\r\n#=\r\n3=", "[A]<3=><#=><2=><10=><a=><b=>"},
        {"[A]\r\na\0b=\0\r\n\xff=\x80"s, "[A]<a\0b=\0><\xff=\x80>"s},
        {"[A]\r\n" + chunk + chunk + chunk + "=1\r\nx=" + chunk + chunk + chunk + "\r\ny=",
         "[A]<" + chunk + chunk + chunk + "=1><x=" + chunk + chunk + chunk + "><y=>"}};
    for (const auto& [text, listing] : cases) EXPECT_EQ(Listing(Loaded(text)), listing) << text.substr(0, 99);
    // CR, LF and a lone LF around the edge of a chunk
    for (std::size_t length = 65520; length < 65540; ++length) {
        const std::string value(length, 'v');
        EXPECT_EQ(Listing(Loaded("[A]\r\na=" + value + "\r\n\nb=1\rc=")), "[A]<\nb=1><a=" + value + "><c=>");
    }
}

TEST_F(IniTest, ALongLineTakesNoMoreMemoryThanItsLength) {
    const clsINI ini = Loaded("[A]\r\nx=" + std::string(5'000'000, 'v'));
    const std::string* value = ini.FindValue("A", "x");
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->size(), 5'000'000U);
    EXPECT_LT(value->capacity(), 5'200'000U);
}

TEST_F(IniTest, LoadingReplacesTheDocument) {
    std::filesystem::create_directory(Path("folder"));
    clsINI ini(Box());
    EXPECT_EQ(ini.FileName(), "");
    for (const std::string& path : {Path("absent"), Path("folder"), std::string(), Path("absent/x")}) {
        ini.LoadINI(Written("[A]\r\nx=1"));
        EXPECT_EQ(Listing(ini), "[A]<x=1>");
        ini.LoadINI(path);
        EXPECT_EQ(Listing(ini), "");
        EXPECT_EQ(ini.FileName(), path);
    }
#ifdef __linux__
    ini.LoadINI(Path());
    EXPECT_THROW(ini.LoadINI("/proc/self/mem"), Failure); // a file whose first page cannot be read
    EXPECT_EQ(Listing(ini), "");
    EXPECT_EQ(ini.FileName(), "/proc/self/mem");
#endif
    EXPECT_TRUE(Boxes.empty());
}

using Numbered = std::vector<std::pair<std::string, std::optional<std::int32_t>>>;

/// A table of texts and the number that each one is, if any, from lists of texts that are the same number.
Numbered Table(const std::vector<std::pair<std::optional<std::int32_t>, std::string>>& lists) {
    Numbered table;
    for (const auto& [number, list] : lists) {
        std::istringstream texts(list + "|");
        for (std::string text; std::getline(texts, text, '|');) table.emplace_back(text, number);
    }
    return table;
}

const Numbered Names =
    Table({{0, "0|0.5|-0.5|15e-3"},
           {1, "1| 1 |+1|1.0|01|0.50001"},
           {2, "2|1.5|2.5|15e-1"},
           {4, "3.5|4"},
           {5, "5.|.5e1|5"},
           {10, "10|1E1|&HA"},
           {255, "  &Hff "},
           {-2, "-1.5"},
           {-3, "-3|-3 |-2.51"},
           {Most, "2147483647|2147483647.4|&H7FFFFFFF"},
           {Least, "-2147483648|-2147483648.5"},
           {{}, "| |#x|a|A|a |ab|OpenPath|\xff|12a|1 2|-a|&H|&h1|-&H1|&HG|&H 1|1,000|1_|0x1|inf"},
           {{}, "&H80000000|&HFFFFFFFF|2147483648|2147483647.5|-2147483649|1E20|-1E20|nan"},
           {{}, "1E|1e+|1e 1|.|+|.e1|1.2.3|\t1|1\n|- 1|+-1"}});

TEST(NumberTextTest, LongAndExtremeNumbers) {
    const std::string zeros(100000, '0');
    const Numbered cases =
        Table({{0, "0." + zeros + "5|0e" + zeros + "99999999999999999999|1e-99999999999999999999"},
               {2, "2.5" + zeros},
               {3, "2.5" + zeros + "1"},
               {-3, "-2.5" + zeros + "1"},
               {7, "0." + zeros + "7e100001|7" + zeros + "e-100000|" + zeros + "7"},
               {31, "&H" + zeros + "1f"},
               {{}, "1" + zeros + "|1e99999999999999999999|-1e400|&H1" + zeros}});
    for (const auto& [text, number] : cases) EXPECT_EQ(WholeNumber(text).Value, number) << text.substr(0, 30);
}

/// The same document kept in the plainest way: one list, searched from its front.
struct Model {
    struct Key {
        std::size_t Name;
        std::string Value;
    };
    std::vector<Key> Keys;

    [[nodiscard]] std::size_t Find(std::size_t name) const {
        std::size_t i = 0;
        while (i < Keys.size() && Keys[i].Name != name) ++i;
        return i;
    }
    void Add(std::size_t name, const std::string& value) {
        const auto& [text, number] = Names[name];
        std::size_t i = 0;
        for (; i < Keys.size(); ++i) {
            const auto& [otherText, otherNumber] = Names[Keys[i].Name];
            if (number ? !otherNumber || *number < *otherNumber : text < otherText) break;
        }
        Keys.insert(Keys.begin() + static_cast<std::ptrdiff_t>(i), {name, value});
    }
};

TEST_F(IniTest, KeysStandWhereTheRulePutsThem) {
    std::mt19937 random(20240611); // NOLINT: the same documents in every run
    const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    for (int document = 0; document < 500; ++document) {
        // A few names each, so that all kinds of neighbourhoods, tidy ones among them, come up.
        std::vector<std::size_t> pool(1 + below(12));
        for (auto& name : pool) name = below(Names.size());
        Model model;
        std::string text = "[S]\r\n";
        for (std::size_t i = below(20); i > 0; --i) {
            const std::size_t name = pool[below(pool.size())];
            model.Add(name, std::to_string(i));
            text += Names[name].first + "=" + std::to_string(i) + "\r\n";
        }
        clsINI ini = Loaded(text);
        ini.AllowSaveFile(false);
        for (std::size_t i = below(20); i > 0; --i) {
            const std::size_t name = pool[below(pool.size())];
            const std::size_t at = model.Find(name);
            const bool found = at < model.Keys.size();
            const std::string value = "w" + std::to_string(i);
            const std::size_t action = below(8);
            if (action == 0 && !model.Keys.empty()) {
                const std::size_t renamed = below(model.Keys.size());
                model.Keys[renamed].Name = name;
                ini.KeyName("S", static_cast<std::int32_t>(renamed), Names[name].first);
            } else if (action < 4) {
                if (found) model.Keys.erase(model.Keys.begin() + static_cast<std::ptrdiff_t>(at));
                ini.DeleteKey("S", Names[name].first);
            } else {
                if (found)
                    model.Keys[at].Value = value;
                else
                    model.Add(name, value);
                ini.WriteValue("S", Names[name].first, value);
            }
        }
        std::string expected = "[S]\r\n";
        for (const Model::Key& key : model.Keys) expected += Names[key.Name].first + "=" + key.Value + "\r\n";
        ASSERT_EQ(ini.NumberOfKeys("S"), static_cast<std::int32_t>(model.Keys.size()));
        for (std::size_t name = 0; name < Names.size(); ++name) {
            const std::size_t at = model.Find(name);
            const std::string* value = ini.FindValue("S", Names[name].first);
            ASSERT_EQ(value == nullptr ? "none" : *value,
                      at < model.Keys.size() ? model.Keys[at].Value : "none")
                << Names[name].first << " in\n"
                << expected;
        }
        ini.AllowSaveFile(true);
        ini.SaveFile();
        ASSERT_EQ(Content(), expected);
    }
}

TEST_F(IniTest, ReadLongReadsNumbersAndDefaults) {
    const Numbered values = Table({{0, "|abc|.5|.|&H|-&H1|--1|inf"},
                                   {1, "1E|1e+|1."},
                                   {2, "2.5|1.5.9"},
                                   {4, "3.5"},
                                   {12, "12|12abc|1 2"},
                                   {15, "& H f g"},
                                   {31, "&H1F"},
                                   {-125, "\t- 1\n2 .5 E 1x"},
                                   {Most, "2147483647.49"},
                                   {Least, "-2147483648.5"}});
    for (const auto& [text, number] : values) {
        const clsINI ini = Loaded("[S]\r\nk=" + text);
        EXPECT_EQ(ini.ReadLong("S", "k", 7), number) << text;
    }
    const std::vector<std::pair<std::int32_t, std::vector<AnyValue>>> defaults = {
        {0, {{}, 0.49999999999999994}},
        {2, {2.5, " 2.5 "}},
        {4, {3.5}},
        {-2, {-2, -2.5}},
        {31, {"&H1f"s, 31U}},
        {Most, {Most, 2147483647.4}},
        {Least, {Least, -2147483648.5}}};
    const clsINI ini = Loaded("[S]\r\nk=12\r\nlarge=2147483647.5\r\nhex=&HFFFFFFFF\r\ne=");
    for (const auto& [number, same] : defaults)
        for (const AnyValue& value : same) {
            EXPECT_EQ(ini.ReadLong("S", "absent", value), number);
            EXPECT_EQ(ini.ReadLong("absent", "k", value), number);
            EXPECT_EQ(ini.ReadLong("S", "k", value), 12);
        }
    for (const char* key : {"large", "hex"})
        EXPECT_EQ(ErrorOf([&] { (void)ini.ReadLong("S", key); }, "Overflow"), OverflowError) << key;
    for (const AnyValue& value : {AnyValue(2147483648), AnyValue(-2147483648.6), AnyValue(2147483647.5),
                                  AnyValue(std::nan("")), AnyValue("1E20")})
        EXPECT_EQ(ErrorOf([&] { (void)ini.ReadLong("S", "k", value); }, "Overflow"), OverflowError);
    for (const char* text : {"", "abc", "12abc", "1 2", "\t1"})
        EXPECT_EQ(ErrorOf([&] { (void)ini.ReadLong("S", "k", text); }, "Type mismatch"), WrongTypeError)
            << text;

    const std::vector<std::pair<AnyValue, std::string>> texts = {
        {{}, ""},      {"x", "x"}, {-7, "-7"}, {2.5, "2.5"}, {100000.0, "100000"}, {1e-7, "0.0000001"},
        {-0.1, "-0.1"}};
    for (const auto& [value, text] : texts) EXPECT_EQ(ini.ReadString("S", "absent", value), text);
    EXPECT_EQ(ini.ReadString("S", "e", "default"), "");
}

TEST_F(IniTest, IndexesOutOfRangeAreErrors) {
    clsINI ini = Loaded("[A]\r\nx=1\r\n[A]\r\ny=2\r\nz=3\r\n[E]");
    const std::string text = "Subscript out of range";
    for (const std::int32_t index : {-1, 3, Least, Most})
        EXPECT_EQ(ErrorOf([&] { (void)ini.SectionName(index); }, text), OutOfRangeError) << index;
    for (const std::int32_t index : {-1, 1, Least, Most}) {
        EXPECT_EQ(ErrorOf([&] { (void)ini.KeyName("A", index); }, text), OutOfRangeError) << index;
        EXPECT_EQ(ErrorOf([&] { ini.KeyName("A", index, "n"); }, text), OutOfRangeError) << index;
        EXPECT_EQ(ini.KeyName("absent", index), "");
        ini.KeyName("absent", index, "n");
    }
    EXPECT_EQ(ErrorOf([&] { (void)ini.KeyName("E", 0); }, text), OutOfRangeError);
    EXPECT_EQ(ini.NumberOfKeys("absent"), 0);
    EXPECT_EQ(Listing(ini), "[A]<x=1>[A]<x=1>[E]");
}

TEST_F(IniTest, ChangesAreSavedAtOnce) {
    clsINI ini(Box());
    ini.LoadINI(Path());
    ini.WriteValue("Settings", "OpenPath", "C:\\Games");
    EXPECT_EQ(Content(), "[Settings]\r\nOpenPath=C:\\Games\r\n");

    const std::string text = ";c\r\n[A]\r\ny=2\r\n\r\nx=1\r\n[B]\r\n[A]\r\ny=3\r\ny=4";
    ini = Loaded(text);
    EXPECT_TRUE(ini.AllowSaveFile());
    ini.KeyName("A", 0, "z"); // neither moves nor saves
    ini.AllowSaveFile(false);
    ini.WriteValue("A", "n", "5");
    ini.DeleteKey("A", "n");
    ini.SaveFile();
    ini.AllowSaveFile(true);
    EXPECT_EQ(Content(), text);

    const std::string rest = "\r\n[B]\r\n\r\n[A]\r\ny=3\r\ny=4\r\n";
    const std::vector<std::pair<std::function<void()>, std::string>> steps = {
        {[&] { ini.SaveFile(); }, "[A]\r\nz=1\r\ny=2\r\n" + rest},
        {[&] { ini.WriteValue("A", "z", "="); }, "[A]\r\nz==\r\ny=2\r\n" + rest},
        {[&] { ini.WriteValue("A", "yy", "\n"); }, "[A]\r\nyy=\n\r\nz==\r\ny=2\r\n" + rest},
        {[&] { ini.DeleteKey("A", "yy"); }, "[A]\r\nz==\r\ny=2\r\n" + rest},
        {[&] { ini.DeleteSection("A"); }, "[B]\r\n\r\n[A]\r\ny=3\r\ny=4\r\n"},
        {[&] { ini.DeleteKey("A", "y"); }, "[B]\r\n\r\n[A]\r\ny=4\r\n"},
        {[&] { ini.DeleteSection("B"); }, "[A]\r\ny=4\r\n"},
        {[&] { ini.WriteValue("", "", ""); }, "[A]\r\ny=4\r\n\r\n[]\r\n=\r\n"},
        {[&] { ini.DeleteSection(""); }, "[A]\r\ny=4\r\n"},
        {[&] { ini.DeleteSection("a"); }, "[A]\r\ny=4\r\n"}, // nothing removed, yet written
        {[&] { ini.DeleteKey("A", "Y"); }, "[A]\r\ny=4\r\n"},
        {[&] { ini.DeleteKey("absent", "y"); }, "[A]\r\ny=4\r\n"},
        {[&] { ini.DeleteSection("A"); }, ""}};
    for (const auto& [step, content] : steps) {
        Written(std::string(200, 'x')); // longer than any of them, so that a part left over would show
        step();
        EXPECT_EQ(Content(), content);
    }
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(IniTest, FailedSavesAreShownAndChangeNothing) {
    std::filesystem::create_directory(Path("folder"));
    std::vector<std::string> paths = {"", Path("folder"), Path("absent/test.ini")};
#ifndef _WIN32
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
    paths.push_back(Path("pipe"));
#endif
    for (const std::string& path : paths) {
        clsINI ini(Box());
        ini.LoadINI(path);
        ini.WriteValue("A", "x", "1");
        ASSERT_EQ(Boxes.size(), 1U) << path;
        EXPECT_EQ(Boxes[0].first, "Could not save INI file.");
        const std::string start = "clsINI.SaveFile: " + path;
        EXPECT_EQ(Boxes[0].second.substr(0, start.size()), start);
        EXPECT_GT(Boxes[0].second.size(), start.size());
        Boxes.clear();
        ini.DeleteKey("absent", "y");
        ini.DeleteSection("absent");
        ini.SaveFile();
        EXPECT_EQ(Boxes.size(), 3U) << path;
        Boxes.clear();
        ini.AllowSaveFile(false);
        ini.SaveFile();
        EXPECT_TRUE(Boxes.empty());
        EXPECT_EQ(Listing(ini), "[A]<x=1>");
    }
    clsINI silent; // nobody to tell
    silent.WriteValue("A", "x", "1");
    EXPECT_EQ(Listing(silent), "[A]<x=1>");

    const std::array<std::array<const char*, 3>, 3> broken = {
        {{"A\r", "x", "1"}, {"A", "\rx", "1"}, {"A", "x", "1\r\ny=2"}}};
    for (const auto& [section, key, value] : broken) {
        clsINI ini = Loaded("[B]\r\nz=1");
        ini.WriteValue(section, key, value);
        EXPECT_EQ(Boxes,
                  (decltype(Boxes){{"Could not save INI file.",
                                    "clsINI.SaveFile: " + Path() + ": a name or value holds a line end"}}));
        EXPECT_EQ(Content(), "[B]\r\nz=1");
        EXPECT_EQ(ini.ReadString(section, key), value);
        Boxes.clear();
    }
}

template <typename Call>
double BestTime(Call call) {
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < 9; ++i) {
        const auto start = std::chrono::steady_clock::now();
        call();
        best =
            std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
}

/// How often the time to read a file and find its line ends goes into the time to load it and look up all its
/// keys.
double LoadRatio(const std::string& path, const std::vector<std::pair<std::string, std::string>>& keys) {
    std::size_t lines = 0;
    const double floor = BestTime([&] {
        std::vector<std::uint8_t> bytes(std::filesystem::file_size(path));
        EXPECT_EQ(File::OpenForReading(path)->ReadAt(0, bytes), bytes.size());
        lines = 0;
        const void* at = bytes.data();
        const std::uint8_t* end = bytes.data() + bytes.size();
        const auto left = [&] {
            return static_cast<std::size_t>(end - static_cast<const std::uint8_t*>(at));
        };
        while ((at = std::memchr(at, '\r', left())) != nullptr) {
            ++lines;
            at = static_cast<const std::uint8_t*>(at) + 1;
        }
    });
    std::size_t found = 0;
    const double whole = BestTime([&] {
        clsINI ini;
        ini.LoadINI(path);
        found = 0;
        for (const auto& [section, key] : keys) found += ini.FindValue(section, key) != nullptr ? 1 : 0;
    });
    EXPECT_EQ(found, keys.size());
    EXPECT_GT(lines, keys.size());
    const double ratio = whole / floor;
    testing::Test::RecordProperty("ratio", std::to_string(ratio));
    std::cout << "load and look up / read: " << ratio << "\n";
    return ratio;
}

TEST_F(IniTest, LargeFilesLoadWithoutDelay) {
    std::vector<std::pair<std::string, std::string>> keys;
    std::string text;
    for (const std::string section : {"Plane 0", "Plane 1"}) {
        text += "[" + section + "]\r\n";
        for (int i = 0; i < 256; ++i) {
            keys.emplace_back(section, std::to_string(i));
            text += std::to_string(i) + "=" + std::string(49, '.') + "\r\n";
        }
    }
    EXPECT_LT(LoadRatio(Written(text), keys),
              60); // a symbol file; a slow machine may be some times above the usual

    keys.clear();
    text = "[S]\r\n";
    for (int i = 10000; i > 0; --i) { // the worst order
        keys.emplace_back("S", (i % 2 != 0 ? "" : "key") + std::to_string(i));
        text += keys.back().second + "=value\r\n";
    }
    EXPECT_LT(LoadRatio(Written(text), keys), 1000); // searching from the front takes more
}

} // namespace
} // namespace morvane
