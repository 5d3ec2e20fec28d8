#include "files/BlockFileReader.h"
#include "common/ServicesFixture.h"
#include "files/ChunkedOutput.h"
#include "files/TextEncoding.h"

#include <fstream>

namespace corvane {
namespace {

class BlockFileReaderTest : public ::testing::Test {
protected:
    std::string Put(const std::string& name, const std::string& bytes) {
        const std::string path = temp.File(name);
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    // What reading the bytes whole gives: the reference the chunked reader must match.
    static std::string Whole(const std::string& bytes) {
        std::string converted;
        return BlockDocument::Parse(DecodeFileText(bytes, converted)).Serialize();
    }
    test::TempFolder temp;
};

// Lines long enough that chunk ends fall inside lines, inside CR LF pairs and inside
// multi-byte characters.
std::string LargeFile(const std::string& odd) {
    std::string bytes = "\xEF\xBB\xBFpreamble\r\n[Block 1]\r\n";
    for (int i = 0; i < 300; ++i) {
        bytes += "Tag" + std::to_string(i) + "=" + std::string(7001 + i, 'x') + "\xC3\xA9" + odd + "\r\n";
        if (i % 50 == 0)
            bytes += "[Block " + std::to_string(i + 2) + "]\n";
    }
    bytes += "last line without end";
    return bytes;
}

TEST_F(BlockFileReaderTest, ChunkedReadParsesAsAWholeReadDoes) {
    for (const std::string& bytes : {LargeFile(""), LargeFile("\x96"), std::string(), std::string("\r\n"),
                                     std::string("\xEF\xBB\xBF"), std::string("[A]\r\nx=1")}) {
        const std::string path = Put("file.cvpj", bytes);
        BlockFileReader reader;
        ASSERT_TRUE(reader.Read(path, true));
        ASSERT_NE(reader.Document(), nullptr);
        EXPECT_EQ(reader.Document()->Serialize(), Whole(bytes)) << bytes.size();
        EXPECT_EQ(reader.Hash(), ChunkedOutput::HashOf(bytes));

        BlockFileReader hashOnly;
        ASSERT_TRUE(hashOnly.Read(path, false));
        EXPECT_EQ(hashOnly.Hash(), reader.Hash());
        EXPECT_EQ(hashOnly.Document(), nullptr);
    }
    BlockFileReader missing;
    EXPECT_FALSE(missing.Read(temp.File("none.cvpj"), true));
}

TEST_F(BlockFileReaderTest, EachLineKeepsItsOwnEncoding) {
    // Written by this program in UTF-8, then edited on an older station that typed one line in
    // Windows-1252: every line reads as it was meant, in the whole-file and the chunked read.
    const std::string bytes =
        "[Project]\r\nCustomer=M\xC3\xBCller\r\nVessel=K\xF6nig \x96 II\r\nHull=\xE2\x82\xAC";
    const std::string text = "[Project]\r\nCustomer=Müller\r\nVessel=König – II\r\nHull=€";
    EXPECT_EQ(DecodeFileText(bytes), text);
    EXPECT_EQ(Whole(bytes), text + "\r\n");
    BlockFileReader reader;
    ASSERT_TRUE(reader.Read(Put("mixed.cvpj", bytes), true));
    EXPECT_EQ(reader.Document()->Serialize(), text + "\r\n");
}

TEST_F(BlockFileReaderTest, TheHashDoesNotDependOnHowTheBytesArrive) {
    const std::string bytes = LargeFile("");
    std::string passed;
    ChunkedOutput output([&passed](std::string_view chunk) {
        EXPECT_LE(chunk.size(), ChunkedOutput::kChunkSize);
        passed += chunk;
        return true;
    });
    for (std::size_t at = 0; at < bytes.size(); at += 777) {
        output.Append(std::string_view(bytes).substr(at, 777));
    }
    EXPECT_TRUE(output.Finish());
    EXPECT_EQ(passed, bytes);
    EXPECT_EQ(output.Hash(), ChunkedOutput::HashOf(bytes));
    EXPECT_NE(output.Hash(), ChunkedOutput::HashOf(bytes + "x"));

    // A sink that fails is not called again, and the failure is reported.
    int calls = 0;
    ChunkedOutput failing([&calls](std::string_view) {
        ++calls;
        return false;
    });
    failing.Append(bytes);
    EXPECT_FALSE(failing.Finish());
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace corvane
