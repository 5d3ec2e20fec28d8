// Feeds every file of a corpus folder to the fuzz target once. Run by ctest so that inputs kept
// in the corpus (seeds and past crashes) are checked on every test run, with or without clang.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS_FOLDER\n", argv[0]);
        return 2;
    }
    namespace fs = std::filesystem;
    std::error_code error;
    if (!fs::is_directory(argv[1], error)) {
        std::fprintf(stderr, "no corpus folder: %s\n", argv[1]);
        return 2;
    }
    int count = 0;
    for (const auto& entry : fs::recursive_directory_iterator(argv[1])) {
        if (!entry.is_regular_file())
            continue;
        std::ifstream in(entry.path(), std::ios::binary);
        std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(in)),
                                        std::istreambuf_iterator<char>());
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
        ++count;
    }
    // The empty input is always worth a try.
    LLVMFuzzerTestOneInput(nullptr, 0);
    std::printf("%d inputs replayed\n", count);
    return count > 0 ? 0 : 1;
}
