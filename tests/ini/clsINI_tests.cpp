#include "TempFolder.h"
#include "clsINI.h"

#include <functional>

using namespace morvane;

static_assert(!std::is_constructible_v<AnyValue, bool>); // neither a number nor a text

struct IniTest : testing::Test {
    clsINI Loaded(const std::string& text) {
        clsINI ini([this](const auto& title, const auto& told) { Boxes += title + "\n" + told + "\n"; });
        ini.LoadINI(Folder.Write("test.ini", text));
        return ini;
    }

    TempFolder Folder;
    std::string Boxes;
};

/// A text with line ends for "|".
std::string Lines(const std::string& text) { return Replaced(text, "|", "\r\n"); }

TEST_F(IniTest, LinesBecomeSectionsAndSortedKeys) {
    // What is loaded, and the lines of what is saved.
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"[A]\r\n\nx=1\r\ny=\n2\r\r\nz=3", "[A]|\nx=1|y=\n2|z=3|"},
        {"w=0\r[A]\rkey = value\r=v\rk=;=\r\r   \r #x=2\r;y=1\r ;z=", "[A]|=v| #x=2| ;z=|k=;=|key = value|"},
        {"[S]  \r\n [S]\r\n[\r\n[]\r\n[x\r\n", "[S] ]||[]||[]||[]|"}, // whatever ends a header is dropped
        {"[S]\r\na=1\r\n[S]\r\na=2\r\n[s]\r\nA=3\r\nA =4", "[S]|a=1||[S]|a=2||[s]|A=3|A =4|"},
        {"[A]\rx=" + std::string(70'000, 'v'), "[A]|x=" + std::string(70'000, 'v') + "|"},
        // Halves go to the even neighbour, equals stay in order.
        {"[S]\r4=\r2=\r2.5=\r2.6=\r1.5=\r3=", "[S]|2=|2.5=|1.5=|2.6=|3=|4=|"},
        {"[S]\rx=1\r1=3\r1.0=\r 1=\r+1=\r&H1=\rx=2\r0=\r1=4", "[S]|0=|1=3|1.0=| 1=|+1=|&H1=|1=4|x=1|x=2|"},
        {"[S]\rb=\rB=\rab=\ra=\ra =\r\xff=\x80\rA=\r=", "[S]|=|A=|B=|a=|a =|ab=|b=|\xff=\x80|"},
        // A name below the digits stays where it is; a beginning alone makes no number.
        {"[S]\r12a=\r#=\r1E20=\r1=\r2=\r%=", "[S]|%=|1=|2=|#=|12a=|1E20=|"}};
    for (const auto& [text, lines] : cases) {
        Loaded(text).SaveFile();
        EXPECT_EQ(TextOf(Folder / "test.ini"), Lines(lines)) << text.substr(0, 99);
    }
}

TEST_F(IniTest, ReadLongTakesTheNumberThatAValueBeginsWith) {
    const std::map<std::int32_t, std::vector<std::string>> numbers = {
        {0, {"", "abc", "-", "&H", "--1", "inf", "-0.5", "1e-400", "0." + std::string(400, '0') + "5"}},
        {12, {"12abc", "1 2", "+11.5", "12.5", "12E", "120 E-1.9", "& H0\tc g"}},
        {INT32_MAX, {"2147483647.4", "&H7FFFFFFF"}},
        {INT32_MIN, {"\t- 21474\n83648 .5x"}}};
    for (const auto& [number, texts] : numbers)
        for (const std::string& text : texts)
            EXPECT_EQ(Loaded("[S]\r\nk=" + text).ReadLong("S", "k", 7), number) << text;
}

TEST_F(IniTest, DefaultsStandInForAbsentKeys) {
    const clsINI ini = Loaded("[S]\r\ne=\r\nf=g=h\r\nlarge=2147483647.5");
    EXPECT_EQ(ini.ReadString("S", "e", "default"), "");
    EXPECT_EQ(ini.ReadString("S", "f"), "g=h");
    EXPECT_EQ(ini.ReadString("absent", "e", "x"), "x");
    EXPECT_EQ(ini.ReadString("S", "absent", 1e-7), "0.0000001");

    for (const AnyValue& value : {AnyValue(2), AnyValue(2.5), AnyValue(" 1.5 ")})
        EXPECT_EQ(ini.ReadLong("S", "absent", value), 2);
    EXPECT_EQ(FailureOf([&] { (void)ini.ReadLong("S", "large"); }).Number, OverflowError);
    for (const char* text : {"2147483647.5", "-2147483649", "&H80000000", "1E20", "-1e400"})
        EXPECT_EQ(FailureOf([&] { (void)ini.ReadLong("S", "f", text); }).Number, OverflowError) << text;
    for (const char* text : {"", " ", "12a", "1 2", "&H", "&h1", "-&H1", "--1", "+-1", ".", "1E", "\t1"})
        EXPECT_EQ(FailureOf([&] { (void)ini.ReadLong("S", "f", text); }).Number, WrongTypeError) << text;
}

TEST_F(IniTest, IndexesCountFrom0AndAreChecked) {
    clsINI ini = Loaded("[A]\r\nx=1\r\nx=0\r\nz=\r\n[A]\r\ny=2\r\n[E]");
    for (const std::int32_t index : {-1, 3}) {
        EXPECT_EQ(FailureOf([&] { (void)ini.SectionName(index); }).Number, OutOfRangeError) << index;
        EXPECT_EQ(FailureOf([&] { ini.KeyName("A", index, "n"); }).Number, OutOfRangeError) << index;
    }
    ini.KeyName("absent", 0, "n");
    EXPECT_EQ(ini.KeyName("absent", 0), "");
    EXPECT_EQ(ini.SectionName(2), "E");
    EXPECT_EQ(ini.NumberOfKeys("A"), 3);
    EXPECT_EQ(ini.KeyName("A", 2), "z");
    EXPECT_EQ(ini.ReadString("A", "x"), "1"); // the first of its name
}

TEST_F(IniTest, ChangesAreSavedAtOnce) {
    const std::string text = "[B]\r\n;c\r\n[A]\r\ny=2\r\n\r\nzz=\r\nx=1\r\n[A]\r\ny=3\r\ny=4";
    clsINI ini = Loaded(text);
    ini.KeyName("A", 0, "z"); // neither moves nor saves
    ini.AllowSaveFile(false);
    ini.WriteValue("A", "z", "=");
    ini.WriteValue("A", "yy", "\n");
    ini.AllowSaveFile(true);
    EXPECT_EQ(TextOf(Folder / "test.ini"), text);

    const std::string old(200, 'x'); // longer than what any step writes
    const std::vector<std::pair<std::function<void()>, std::string>> steps = {
        {[&] { ini.DeleteKey("A", "zz"); }, "[B]||[A]|yy=\n|z==|y=2||[A]|y=3|y=4|"},
        {[&] { ini.DeleteSection("A"); }, "[B]||[A]|y=3|y=4|"},
        {[&] { ini.DeleteKey("A", "y"); }, "[B]||[A]|y=4|"},
        {[&] { ini.WriteValue("", "", ""); }, "[B]||[A]|y=4||[]|=|"},
        {[&] { ini.DeleteSection("a"); }, "[B]||[A]|y=4||[]|=|"}, // nothing removed, yet written
        {[&] { ini.WriteValue("A", "y", "1\rx=2"); }, old}};      // it would come back as two keys
    for (const auto& [step, lines] : steps) {
        Folder.Write("test.ini", old);
        step();
        EXPECT_EQ(TextOf(Folder / "test.ini"), Lines(lines));
    }
    EXPECT_NE(Boxes, ""); // of the last step
}

TEST_F(IniTest, WhatIsNoFileLoadsAsNothingAndFailedSavesAreShown) {
    for (const std::string& path : {std::string(), Folder.Path, Folder / "absent/test.ini"}) {
        clsINI ini = Loaded("[A]\r\nx=0");
        ini.LoadINI(path);
        EXPECT_EQ(ini.NumberOfSections(), 0);
        ini.WriteValue("A", "x", "1");
        EXPECT_EQ(ini.ReadString("A", "x"), "1");
        EXPECT_EQ(Boxes.rfind("Could not save INI file.\nclsINI.SaveFile: " + path), 0U) << Boxes;
        Boxes.clear();
    }
    clsINI().SaveFile(); // nobody to tell
}

TEST_F(IniTest, ARenamedKeyIsTheNumberThatItsNewNameIs) {
    clsINI ini = Loaded("[S]\r5=");
    ini.KeyName("S", 0, "x");
    ini.WriteValue("S", "7", "");
    EXPECT_EQ(TextOf(Folder / "test.ini"), Lines("[S]|7=|x=|"));
}
