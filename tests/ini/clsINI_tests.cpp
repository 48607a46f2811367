#include "NumberText.h"
#include "TempFolder.h"
#include "clsINI.h"

#include <functional>
#include <sstream>

using namespace morvane;
using namespace std::string_literals;
using TextPairs = std::vector<std::pair<std::string, std::string>>;

static_assert(!std::is_constructible_v<AnyValue, bool>); // neither a number nor a text

class IniTest : public testing::Test {
  protected:
    clsINI Loaded(const std::string& text) {
        clsINI ini([this](const auto& title, const auto& message) { Boxes.emplace_back(title, message); });
        ini.LoadINI(Folder.Write("test.ini", text));
        return ini;
    }
    [[nodiscard]] std::string Content() const { return TextOf(Folder / "test.ini"); }

    TempFolder Folder;
    TextPairs Boxes;
};

/// A text with line ends for "|".
std::string Lines(std::string text) {
    for (std::size_t at = 0; (at = text.find('|')) != std::string::npos;) text.replace(at, 1, "\r\n");
    return text;
}

TEST_F(IniTest, LinesBecomeSectionsAndSortedKeys) {
    const std::string large(200'000, 'v');
    // What is loaded, and the lines of what is saved.
    const TextPairs cases = {
        {"", ""},
        {"w=0\r\n[A]\r\nx=1\r\n\r\n;x=2\r\n[B]\r\ny=2=3", "[A]|x=1||[B]|y=2=3|"},
        {"[A]\nx=1\ny=2\n", "[A]\nx=1\ny=2]|"}, // one line, a header
        {"[A]\r\n\nx=1\r\ny=\n2\r\r\nz=3", "[A]|\nx=1|y=\n2|z=3|"},
        {"[A]\rkey = value\r=v\rk=;\r   \rword\r #x=2\r;\r ;z=", "[A]|=v| #x=2| ;z=|k=;|key = value|"},
        {"[S]  \r\n [S]\r\n[\r\n[]\r\n[x\r\n", "[S] ]||[]||[]||[]|"}, // whatever ends a header is dropped
        {"[S]\r\na=1\r\n[S]\r\na=2\r\n[s]\r\nA=3\r\nA =4", "[S]|a=1||[S]|a=2||[s]|A=3|A =4|"},
        {"[A]\r\na\0b=\0\r\n\xff=\x80"s, "[A]|a\0b=\0|\xff=\x80|"s},
        {"[A]\r\n" + large + "=1\r\nx=" + large + "\r\ny=", "[A]|" + large + "=1|x=" + large + "|y=|"},
        // Halves go to the even neighbour, equals stay in order.
        {"[S]\r4=\r2=\r2.5=\r2.6=\r1.5=\r3=", "[S]|2=|2.5=|1.5=|2.6=|3=|4=|"},
        {"[S]\r3.5=\r4=\r0.5=\r-0.5=\r0=\r-1.5=\r-2=", "[S]|-1.5=|-2=|0.5=|-0.5=|0=|3.5=|4=|"},
        {"[S]\rx=1\r1=3\r1.0=\r 1=\r+1=\r&H1=\rx=2\r0=\r1=4", "[S]|0=|1=3|1.0=| 1=|+1=|&H1=|1=4|x=1|x=2|"},
        {"[S]\rb=\rB=\rab=\ra=\ra =\r\xff=\rA=\r=", "[S]|=|A=|B=|a=|a =|ab=|b=|\xff=|"},
        // Names below the digits and such as begin like numbers.
        {"[S]\r#=\r1=\r2=\r%=", "[S]|%=|1=|2=|#=|"},
        {"[S]\r&HG=\r1=\r1E20=\r2147483648=\r2=", "[S]|1=|2=|&HG=|1E20=|2147483648=|"},
        {"[S]\r#=\r%=1\r5=\r%=2", "[S]|%=2|5=|#=|%=1|"}};
    for (const auto& [text, lines] : cases) {
        Loaded(text).SaveFile();
        EXPECT_EQ(Content(), Lines(lines)) << text.substr(0, 99);
    }
}

TEST_F(IniTest, LoadingReplacesTheDocument) {
    for (const std::string& path : {Folder / "absent", Folder.Path, ""s}) {
        clsINI ini = Loaded("[A]\r\nx=1");
        ini.LoadINI(path);
        EXPECT_EQ(ini.NumberOfSections(), 0);
        EXPECT_EQ(ini.FileName(), path);
    }
}

TEST_F(IniTest, NumbersAreReadFromTexts) {
    using Numbers = std::vector<std::pair<std::optional<std::int32_t>, std::string>>;
    const std::string zeros(100'000, '0');
    const Numbers whole = {
        {0, "0|0.5|-0.5|15e-3|1e-400|-1e-400|0." + zeros + "5|0e999999999999999999999|"},
        {1, "1| 1 |+1|1.|01|0.50001|10E-1|.1e+1|" + zeros + "1|0." + zeros + "1e100001|"},
        {2, "2|1.5|2.5|15e-1|2.5" + zeros + "|"},
        {255, "  &Hff |&H" + zeros + "FF|"},
        {INT32_MAX, "2147483647|2147483647.4|&H7FFFFFFF|"},
        {INT32_MIN, "-2147483648|-2147483648.5|"},
        {{}, "|  |#x|a|12a|1 2|-a|&H|&h1|-&H1|&HG|&H 1|1,000|0x1|inf|nan|-inf|--1|+-1|- 1|-|+|.|"},
        {{}, "&H80000000|&HFFFFFFFFFFFFFFFFFF|2147483648|2147483647.5|-2147483649|1E20|-1e400|1e99999|"},
        {{}, "1E|1e+|1e 1|.e1|1.2.3|\t1|1\n|1" + zeros + "|"}};
    const Numbers leading = {{0, "|abc|.5|.|-|&H|-&H1|--1|inf|"},
                             {2, "2E|2e+|2.|2.5|1.5.9|"},
                             {12, "12|12abc|1 2|"},
                             {31, "&H1F|& H1\tf g|"},
                             {-125, "\t- 1\n2 .5 E 1x|"}};
    std::string text;
    for (const auto& [number, texts] : whole)
        for (std::istringstream list(texts); std::getline(list, text, '|');)
            EXPECT_EQ(WholeNumber(text).Value, number) << text.substr(0, 30);
    for (const auto& [number, texts] : leading)
        for (std::istringstream list(texts); std::getline(list, text, '|');)
            EXPECT_EQ(Loaded("[S]\r\nk=" + text).ReadLong("S", "k", 7), number) << text;
}

TEST_F(IniTest, DefaultsStandInForAbsentKeys) {
    const clsINI ini = Loaded("[S]\r\nk=12\r\nlarge=2147483647.5\r\ne=");
    EXPECT_EQ(ini.ReadLong("S", "absent"), 0);
    for (const AnyValue& value : {AnyValue(2), AnyValue(2.5), AnyValue(" 1.5 "), AnyValue("&H2"s)})
        EXPECT_EQ(ini.ReadLong("S", "absent", value), 2);
    EXPECT_EQ(ini.ReadLong("absent", "k", INT32_MAX), INT32_MAX);
    EXPECT_EQ(ini.ReadLong("S", "absent", -2147483648.5), INT32_MIN);
    EXPECT_EQ(FailureOf([&] { (void)ini.ReadLong("S", "large"); }).Number, OverflowError);
    for (const AnyValue& value : {AnyValue(2147483647.5), AnyValue(1e300), AnyValue("1E20")})
        EXPECT_EQ(FailureOf([&] { (void)ini.ReadLong("S", "k", value); }).Number, OverflowError);
    for (const char* value : {"", "abc", "12abc", "1 2", "\t1"})
        EXPECT_EQ(FailureOf([&] { (void)ini.ReadLong("S", "k", value); }).Number, WrongTypeError) << value;

    EXPECT_EQ(ini.ReadString("S", "e", "default"), "");
    EXPECT_EQ(ini.ReadString("absent", "k", "x"), "x");
    EXPECT_EQ(ini.ReadString("S", "absent", 1e-7), "0.0000001");
}

TEST_F(IniTest, IndexesCountFrom0AndAreChecked) {
    clsINI ini = Loaded("[A]\r\nx=1\r\nx=0\r\nz=\r\n[A]\r\ny=2\r\n[E]");
    for (const std::int32_t index : {-1, 3, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(FailureOf([&] { (void)ini.SectionName(index); }).Number, OutOfRangeError) << index;
        EXPECT_EQ(FailureOf([&] { (void)ini.KeyName("A", index); }).Number, OutOfRangeError) << index;
        EXPECT_EQ(FailureOf([&] { ini.KeyName("A", index, "n"); }).Number, OutOfRangeError) << index;
        EXPECT_EQ(ini.KeyName("absent", index), "");
        ini.KeyName("absent", index, "n");
    }
    EXPECT_EQ(ini.SectionName(2), "E");
    EXPECT_EQ(ini.NumberOfKeys("A"), 3);
    EXPECT_EQ(ini.NumberOfKeys("absent"), 0);
    EXPECT_EQ(ini.KeyName("A", 2), "z");
    EXPECT_EQ(ini.ReadString("A", "x"), "1"); // the first of its name
}

TEST_F(IniTest, ChangesAreSavedAtOnce) {
    const std::string text = ";c\r\n[A]\r\ny=2\r\n\r\nx=1\r\n[B]\r\n[A]\r\ny=3\r\ny=4";
    clsINI ini = Loaded(text);
    ini.KeyName("A", 0, "z"); // neither moves nor saves
    ini.AllowSaveFile(false);
    ini.WriteValue("A", "n", "5");
    ini.DeleteKey("A", "n");
    ini.AllowSaveFile(true);
    EXPECT_EQ(Content(), text);

    const std::string rest = "|[B]||[A]|y=3|y=4|";
    const std::vector<std::pair<std::function<void()>, std::string>> steps = {
        {[&] { ini.WriteValue("A", "z", "="); }, "[A]|z==|y=2|" + rest},
        {[&] { ini.WriteValue("A", "yy", "\n"); }, "[A]|yy=\n|z==|y=2|" + rest},
        {[&] { ini.DeleteKey("A", "z"); }, "[A]|yy=\n|y=2|" + rest},
        {[&] { ini.DeleteSection("A"); }, "[B]||[A]|y=3|y=4|"},
        {[&] { ini.DeleteKey("A", "y"); }, "[B]||[A]|y=4|"},
        {[&] { ini.WriteValue("", "", ""); }, "[B]||[A]|y=4||[]|=|"},
        {[&] { ini.DeleteSection("a"); }, "[B]||[A]|y=4||[]|=|"}}; // nothing removed, yet written
    for (const auto& [step, lines] : steps) {
        Folder.Write("test.ini", std::string(200, 'x')); // longer than any of them
        step();
        EXPECT_EQ(Content(), Lines(lines));
    }
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(IniTest, FailedSavesAreShownAndChangeNothing) {
    for (const std::string& path : {""s, Folder.Path, Folder / "absent/test.ini"}) {
        clsINI ini = Loaded("");
        ini.LoadINI(path);
        ini.WriteValue("A", "x", "1");
        ini.DeleteKey("absent", "y");
        ini.DeleteSection("absent");
        ini.AllowSaveFile(false);
        ini.SaveFile();
        ASSERT_EQ(Boxes.size(), 3U) << path;
        EXPECT_EQ(Boxes[0].first, "Could not save INI file.");
        EXPECT_TRUE(Boxes[0].second.starts_with("clsINI.SaveFile: " + path)) << Boxes[0].second;
        EXPECT_EQ(ini.ReadString("A", "x"), "1");
        Boxes.clear();
    }
    clsINI().SaveFile(); // nobody to tell

    clsINI ini = Loaded("[B]\r\nz=1");
    ini.WriteValue("B", "x", "1\r\ny=2");
    EXPECT_EQ(Content(), "[B]\r\nz=1");
}
