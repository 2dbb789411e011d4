// Every input kept for the fuzz targets, the seed corpus and each input that once broke
// something, replayed in the normal test suite: a fixed bug stays fixed without the fuzz build.
#include "fuzz_targets.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

namespace {

struct Target {
    const char* name;
    std::string (*run)(const std::uint8_t*, std::size_t);
};

void PrintTo(const Target& target, std::ostream* out) { *out << target.name; }

std::vector<std::filesystem::path> keptInputs(const std::string& target) {
    std::vector<std::filesystem::path> files;
    for (const char* kind : {"corpus", "regressions"}) {
        const std::filesystem::path dir = std::filesystem::path(ORBISETT_FUZZ_DIR) / kind / target;
        if (std::filesystem::is_directory(dir)) {
            for (const auto& entry : std::filesystem::directory_iterator(dir)) {
                files.push_back(entry.path());
            }
        }
    }
    return files;
}

std::string contents(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

class Replay : public ::testing::TestWithParam<Target> {};

TEST_P(Replay, EveryKeptInputIsHandled) {
    const std::vector<std::filesystem::path> files = keptInputs(GetParam().name);
    ASSERT_FALSE(files.empty()) << "no inputs kept for " << GetParam().name;
    for (const std::filesystem::path& file : files) {
        const std::string bytes = contents(file);
        std::string wrong;
        EXPECT_NO_THROW(wrong = GetParam().run(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()))
            << file;
        EXPECT_EQ("", wrong) << file;
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, Replay,
                         ::testing::Values(Target{"edit_field", fuzz::editFieldText}, Target{"scene", fuzz::sceneFile},
                                           Target{"set_assignment", fuzz::setAssignment}),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
