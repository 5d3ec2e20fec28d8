#include "cli/CliApp.h"
#include "support/ProcessMemory.h"

#include <iostream>

int main(int argc, char** argv) {
    corvane::PrepareAllocatorForLargeProjects();
    std::vector<std::string> args(argv + 1, argv + argc);
    return corvane::cli::RunCli(args, std::cout, std::cerr);
}
