#include "files/clsFileINI.h"
#include "ProjectFileTestSupport.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>

namespace corvane {
namespace {

namespace fs = std::filesystem;

class clsFileINITest : public test::ServicesTest {
protected:
    std::string Put(const std::string& name, const std::string& bytes) {
        test::WriteBytes(temp->File(name), bytes);
        return temp->File(name);
    }
    static std::string Bytes(const std::string& path) { return test::FileBytes(path); }
    std::size_t FilesInFolder() const {
        const auto files = [](const fs::directory_entry& entry) { return entry.is_regular_file(); };
        return static_cast<std::size_t>(std::count_if(fs::directory_iterator(temp->Path()), {}, files));
    }
    // Writes one block of Tag=Value pairs through a fresh object.
    static int WriteTags(const std::string& path, const std::string& block,
                         const std::vector<std::pair<std::string, std::string>>& tags) {
        clsFileINI ini;
        bool flag = false;
        std::string text;
        for (const auto& [tag, value] : tags) {
            ini.SetStringToBlockTag(tag, value, flag, text);
        }
        return ini.WriteBlock(block, path);
    }

    bool flag = false;
    std::string text;
};

TEST_F(clsFileINITest, BlocksAreReplacedInPlaceAppendedAtTheEndAndStaleOnesKept) {
    const std::string path = temp->File("p.cvpj");
    ASSERT_EQ(WriteTags(path, "Project", {{"Name", "  Job 1"}, {"Unit", "mm"}}), 1);
    ASSERT_EQ(WriteTags(path, "Blade1", {{"Pitch", "1.5"}}), 1);
    ASSERT_EQ(WriteTags(path, "Old", {{"X", "1"}}), 1);
    ASSERT_EQ(WriteTags(path, "PROJECT", {{"Name", "Job 2"}}), 1);
    EXPECT_EQ(Bytes(path), "[Project]\r\nName=Job 2\r\n[Blade1]\r\nPitch=1.5\r\n[Old]\r\nX=1\r\n");

    clsFileINI ini;
    EXPECT_EQ(ini.ReadBlock("project", path), 1);
    EXPECT_EQ(ini.GetStringFromBlockTag("NAME", flag, text), "Job 2");
    EXPECT_EQ(ini.ReadBlock("Missing", path), 0);
    EXPECT_TRUE(ini.Lines().empty()); // the old lines are erased
    EXPECT_EQ(ini.ReadBlock("Project", temp->File("none.cvpj")), 0);
    EXPECT_EQ(ini.ReadBlock("", path), 0);
    EXPECT_FALSE(flag);
}

TEST_F(clsFileINITest, TagLookUpTrimsIgnoresCaseAndTakesTheFirstLine) {
    std::string big = "[B]\r\n";
    for (int i = 0; i < 300; ++i) {
        big += "Filler" + std::to_string(i) + "=" + std::string(20, 'x') + "\r\n";
    }
    const std::string path = Put("t.cvpj", "[A]\r\n  Tag = 1.5  \r\nexpr=a=b\r\nDup=first\r\ndup=second\r\n"
                                           "Comma=3,5\r\n\r\nEmpty=\r\n" +
                                               big + "Last=end\r\n");
    clsFileINI ini;
    ASSERT_EQ(ini.ReadBlock("A", path), 1);
    EXPECT_EQ(ini.GetFloatFromBlockTag("tag", flag, text), 1.5);
    EXPECT_EQ(ini.GetStringFromBlockTag("Expr", flag, text), "a=b");
    EXPECT_EQ(ini.GetStringFromBlockTag("DUP", flag, text), "first");
    EXPECT_EQ(ini.GetFloatFromBlockTag("Comma", flag, text), 3.0);
    EXPECT_EQ(ini.Lines().size(), 6u);      // the blank line is no line of the block
    ASSERT_EQ(ini.ReadBlock("B", path), 1); // far beyond the historic 1024-character buffer
    EXPECT_EQ(ini.Lines().size(), 301u);
    EXPECT_EQ(ini.GetStringFromBlockTag("Last", flag, text), "end");
    EXPECT_FALSE(flag);
}

TEST_F(clsFileINITest, MissingTagsReadAsEmptyExceptIndexTags) {
    const std::string path = Put("m.cvpj", "[A]\r\nUnit=furlong\r\nEmpty=\r\n");
    clsFileINI ini;
    ASSERT_EQ(ini.ReadBlock("A", path), 1);
    std::vector<double> floats{9, 9};
    std::vector<std::int16_t> ints;
    std::vector<std::string> strings;
    EXPECT_EQ(ini.GetStringFromBlockTag("Nope", flag, text), "");
    EXPECT_EQ(ini.GetFloatFromBlockTag("Nope", flag, text), 0.0);
    EXPECT_EQ(ini.GetIntegerFromBlockTag("Empty", flag, text), 0);
    EXPECT_EQ(ini.GetFloatArrayFromBlockTag("Nope", floats, flag, text), 1);
    EXPECT_EQ(floats, std::vector<double>{0.0});
    EXPECT_EQ(ini.GetIntegerArrayFromBlockTag("Nope", ints, flag, text), 1);
    EXPECT_EQ(ini.GetStringArrayFromBlockTag("Nope", strings, flag, text, ";"), 1);
    EXPECT_FALSE(flag);
    EXPECT_TRUE(text.empty());

    const std::vector<std::string> units{"ft", "m", "in", "mm"};
    text = "before";
    EXPECT_EQ(ini.GetIndexFromBlockTag("Unit", units, flag, text), 0);
    EXPECT_TRUE(flag);
    EXPECT_EQ(text, "before\r\n [Unit] tag [furlong] not recognized.");
    text.clear();
    EXPECT_EQ(ini.GetIndexFromBlockTag("Gone", {"a"}, flag, text), 0);
    EXPECT_EQ(text, "\r\n [Gone] tag [] not recognized.");
}

TEST_F(clsFileINITest, ValueEncodingsRoundTrip) {
    const std::string path = temp->File("v.cvpj");
    clsFileINI ini;
    const std::vector<std::string> units{"ft", "m", "in", "mm"};
    ini.SetFloatToBlockTag("F", -0.000015, flag, text);
    ini.SetFloatToBlockTag("Half", 0.5, flag, text);
    ini.SetIntegerToBlockTag("I", -32768, flag, text);
    ini.SetFloatArrayToBlockTag("FA", 3, {1234.56789012, -0.5, 1e-7, 99.0}, flag, text);
    ini.SetIntegerArrayToBlockTag("IA", 2, {7, -8, 9}, flag, text);
    ini.SetStringArrayToBlockTag("SA", 1, {"a b", "c", "unused"}, flag, text, "|");
    ini.SetIndexToBlockTag(3, "Unit", units, flag, text);
    ini.SetMultiStringToBlockTag("Notes", "line 1\r\nline 2", flag, text);
    ini.SetFloatArrayToBlockTag("None", 0, {}, flag, text);
    EXPECT_FALSE(flag);
    EXPECT_EQ(ini.Lines(),
              (std::vector<std::string>{"F=-1.5E-05", "Half=.5", "I=-32768", "FA=1234.56789,-.5,1E-07",
                                        "IA=7,-8", "SA=a b|c", "Unit=mm", "Notes=line 1|line 2", "None="}));
    ASSERT_EQ(ini.WriteBlock("V", path), 1);
    EXPECT_TRUE(ini.Lines().empty());

    ASSERT_EQ(ini.ReadBlock("v", path), 1);
    std::vector<double> floats;
    std::vector<std::int16_t> ints;
    std::vector<std::string> strings;
    EXPECT_EQ(ini.GetFloatFromBlockTag("F", flag, text), -0.000015);
    EXPECT_EQ(ini.GetIntegerFromBlockTag("I", flag, text), -32768);
    EXPECT_EQ(ini.GetFloatArrayFromBlockTag("FA", floats, flag, text), 3);
    EXPECT_EQ(floats, (std::vector<double>{1234.56789, -0.5, 1e-7}));
    EXPECT_EQ(ini.GetIntegerArrayFromBlockTag("IA", ints, flag, text), 2);
    EXPECT_EQ(ints, (std::vector<std::int16_t>{7, -8}));
    EXPECT_EQ(ini.GetStringArrayFromBlockTag("SA", strings, flag, text, "|"), 2);
    EXPECT_EQ(strings[0], "a b");
    EXPECT_EQ(ini.GetIndexFromBlockTag("Unit", units, flag, text), 3);
    EXPECT_EQ(ini.GetMultiStringFromBlockTag("Notes", flag, text), "line 1\r\nline 2");
    EXPECT_FALSE(flag);
}

TEST_F(clsFileINITest, SetterFailuresFlagTheTagAndWriteNothing) {
    clsFileINI ini;
    ini.SetIndexToBlockTag(4, "Unit", {"ft", "m"}, flag, text);
    ini.SetFloatArrayToBlockTag("FA", 3, {1.0}, flag, text);
    EXPECT_TRUE(flag);
    EXPECT_EQ(text, "\r\n[Unit] tag error.\r\nFA tag error.");
    EXPECT_TRUE(ini.Lines().empty());
    // Setting a tag twice leaves two lines; readers see the first.
    ini.SetIntegerToBlockTag("N", 1, flag, text);
    ini.SetIntegerToBlockTag("N", 2, flag, text);
    EXPECT_EQ(ini.GetIntegerFromBlockTag("N", flag, text), 1);
    EXPECT_EQ(ini.GetIntegerFromBlockTag("n", flag, text), 1); // the next line holds N too
    ini.SetIntegerToBlockTag("M", 5, flag, text);              // set after a look-up
    EXPECT_EQ(ini.GetIntegerFromBlockTag("M", flag, text), 5);
    EXPECT_EQ(ini.Lines().size(), 3u);
}

TEST_F(clsFileINITest, GarbageAndOldFilesReadAndSurviveARewrite) {
    const std::string garbage = std::string("loose line\nx=1\n[A]\nno equals sign\n\x01\x02=\xff\xfe\n") +
                                std::string("zero\0byte=1\n", 12) +
                                "[B\nT=\x93quoted\x94 caf\xe9\n[A]\nSecond=2";
    const std::string path = Put("g.cvpj", garbage);
    clsFileINI ini;
    ASSERT_EQ(ini.ReadBlock("A", path), 1);
    EXPECT_EQ(ini.GetStringFromBlockTag("T", flag, text), "\xE2\x80\x9Cquoted\xE2\x80\x9D caf\xC3\xA9");
    EXPECT_EQ(ini.GetStringFromBlockTag("x", flag, text), "");      // before any header: no block's
    EXPECT_EQ(ini.GetStringFromBlockTag("Second", flag, text), ""); // a later block of that name
    ASSERT_EQ(WriteTags(path, "New", {{"K", "v"}}), 1);
    const std::string rewritten = Bytes(path);
    EXPECT_EQ(rewritten.substr(0, 23), "loose line\r\nx=1\r\n[A]\r\nn");
    EXPECT_NE(rewritten.find("caf\xC3\xA9\r\n[A]\r\nSecond=2\r\n[New]\r\nK=v\r\n"), std::string::npos);
    EXPECT_EQ(rewritten.find('\xe9'), std::string::npos); // written back as UTF-8
}

TEST_F(clsFileINITest, CacheFollowsChangesMadeBehindItsBack) {
    const std::string path = Put("c.cvpj", "[A]\r\nV=1\r\n");
    clsFileINI reader;
    ASSERT_EQ(reader.ReadBlock("A", path), 1);
    Put("c.cvpj", "[A]\r\nV=2\r\n"); // same size, same moment
    ASSERT_EQ(reader.ReadBlock("A", path), 1);
    EXPECT_EQ(reader.GetStringFromBlockTag("V", flag, text), "2");
    ASSERT_EQ(WriteTags(path, "A", {{"V", "3"}}), 1);
    ASSERT_EQ(reader.ReadBlock("a", temp->Folder() + "./c.cvpj"), 1);
    EXPECT_EQ(reader.GetStringFromBlockTag("V", flag, text), "3");
    // An old file is trusted by its stamp; a new stamp still brings the new content.
    const auto old = fs::last_write_time(path) - std::chrono::hours(2);
    Put("c.cvpj", "[A]\r\nV=4\r\n");
    fs::last_write_time(path, old);
    ASSERT_EQ(reader.ReadBlock("A", path), 1);
    EXPECT_EQ(reader.GetStringFromBlockTag("V", flag, text), "4");
    Put("c.cvpj", "[A]\r\nV=5\r\n");
    fs::last_write_time(path, old + std::chrono::seconds(1));
    ASSERT_EQ(reader.ReadBlock("A", path), 1);
    EXPECT_EQ(reader.GetStringFromBlockTag("V", flag, text), "5");
    fs::remove(path);
    EXPECT_EQ(reader.ReadBlock("A", path), 0);

    // A snapshot reader keeps the version it parsed first, whatever happens on disk meanwhile.
    Put("c.cvpj", "[A]\r\nV=6\r\n[B]\r\nW=6\r\n");
    clsFileINI snapshot;
    snapshot.SetSnapshotRead(true);
    ASSERT_EQ(snapshot.ReadBlock("A", path), 1);
    Put("c.cvpj", "[A]\r\nV=7\r\n[B]\r\nW=7\r\n");
    ASSERT_EQ(snapshot.ReadBlock("B", path), 1);
    EXPECT_EQ(snapshot.GetStringFromBlockTag("W", flag, text), "6");
    snapshot.SetSnapshotRead(false);
    ASSERT_EQ(snapshot.ReadBlock("B", path), 1);
    EXPECT_EQ(snapshot.GetStringFromBlockTag("W", flag, text), "7");
}

TEST_F(clsFileINITest, BatchWritesOnceAndReadersSeeIt) {
    const std::string path = temp->File("b.cvpj");
    ASSERT_EQ(WriteTags(path, "Keep", {{"K", "1"}}), 1);
    const std::string before = Bytes(path);
    clsFileINI writer;
    ASSERT_EQ(writer.BeginBatch(path), 1);
    EXPECT_EQ(writer.BeginBatch(path), 0);
    clsFileINI other;
    EXPECT_EQ(other.BeginBatch(path), 0);
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(WriteTags(path, "S" + std::to_string(i), {{"I", std::to_string(i)}}), 1);
    }
    writer.SetStringToBlockTag("K", "2", flag, text);
    ASSERT_EQ(writer.WriteBlock("Keep", path), 1);
    EXPECT_EQ(Bytes(path), before);
    ASSERT_EQ(other.ReadBlock("S2", path), 1);
    EXPECT_EQ(other.GetStringFromBlockTag("I", flag, text), "2");
    EXPECT_EQ(writer.CommitBatch(), 1);
    EXPECT_FALSE(writer.InBatch());
    EXPECT_EQ(Bytes(path), "[Keep]\r\nK=2\r\n[S0]\r\nI=0\r\n[S1]\r\nI=1\r\n[S2]\r\nI=2\r\n");
    EXPECT_EQ(writer.CommitBatch(), 0);

    ASSERT_EQ(writer.BeginBatch(path), 1);
    ASSERT_EQ(WriteTags(path, "Dropped", {{"D", "1"}}), 1);
    writer.DiscardBatch();
    EXPECT_EQ(other.ReadBlock("Dropped", path), 0);
    {
        clsFileINI scoped;
        ASSERT_EQ(scoped.BeginBatch(path), 1);
    } // the destructor discards the batch
    EXPECT_EQ(other.BeginBatch(path), 1);
    other.DiscardBatch();
    EXPECT_EQ(FilesInFolder(), 1u);
}

// Whichever step of a durable write fails, the file and what its readers see stay as they were,
// and no temporary is left behind; a batch that fails to commit stays open for a retry.
TEST_F(clsFileINITest, FailedWritesLeaveTheFileAndItsReadersAsTheyWere) {
    const std::string path = Put("p.cvpj", "[A]\r\nV=1\r\n");
    clsFileINI ini;
    ASSERT_EQ(ini.ReadBlock("A", path), 1); // the parsed file is now held by `ini`
    for (const std::string step : {"write", "sync", "rename", "sync folder"}) {
        test::FailingWriteSteps steps(step);
        const ScopedFileWriteSteps scope(steps);
        ini.SetStringToBlockTag("V", "2", flag, text);
        EXPECT_EQ(ini.WriteBlock("A", path), 0) << step;
        EXPECT_TRUE(ini.Lines().empty());
        EXPECT_EQ(Bytes(path), "[A]\r\nV=1\r\n") << step;
        ASSERT_EQ(ini.ReadBlock("A", path), 1);
        EXPECT_EQ(ini.GetStringFromBlockTag("V", flag, text), "1") << step;
        EXPECT_EQ(FilesInFolder(), 1u) << step;
    }
    ASSERT_EQ(ini.BeginBatch(path), 1);
    ASSERT_EQ(WriteTags(path, "B", {{"W", "1"}}), 1);
    {
        test::FailingWriteSteps steps("rename");
        const ScopedFileWriteSteps scope(steps);
        EXPECT_EQ(ini.CommitBatch(), 0);
    }
    EXPECT_TRUE(ini.InBatch()); // kept for a retry
    EXPECT_EQ(ini.CommitBatch(), 1);
    EXPECT_NE(Bytes(path).find("[B]\r\nW=1\r\n"), std::string::npos);
    // Paths that cannot take a file, whoever runs the test.
    EXPECT_EQ(WriteTags(temp->File("no/such/folder/x.cvpj"), "A", {{"V", "1"}}), 0);
    EXPECT_EQ(WriteTags(temp->Folder(), "A", {{"V", "1"}}), 0);   // a folder, not a file
    EXPECT_EQ(WriteTags(path + "/x.cvpj", "A", {{"V", "1"}}), 0); // below a plain file
    EXPECT_EQ(ini.ReadBlock("A", path + "/x.cvpj"), 0);
    EXPECT_EQ(FilesInFolder(), 1u);
}

} // namespace
} // namespace corvane
