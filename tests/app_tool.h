// Runs the built orbisett-host as a process on scenes written to a fresh temporary folder.
#pragma once

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace apptest {

struct ToolRun {
    int status = -1;
    std::string out;
    std::string err;
};

inline std::string readFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

inline std::string quoted(const std::string& arg) {
    std::string q = "'";
    for (char c : arg) {
        q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return q + "'";
}

class ToolTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string name = ::testing::UnitTest::GetInstance()->current_test_info()->name();
        std::replace(name.begin(), name.end(), '/', '-');  // a parameterized test's name
        dir_ = std::filesystem::temp_directory_path() / ("orbisett-app-" + std::to_string(::getpid()) + "-" + name);
        std::filesystem::remove_all(dir_);
        std::filesystem::create_directories(dir_);
    }
    void TearDown() override { std::filesystem::remove_all(dir_); }

    std::string path(const std::string& name) const { return (dir_ / name).string(); }

    std::string writeScene(const std::string& name, const nlohmann::json& scene) const {
        std::ofstream(path(name)) << scene.dump(2);
        return path(name);
    }

    // Runs the tool; `input` is its standard input; standard output goes to `to` when given.
    ToolRun run(const std::vector<std::string>& args, const std::string& input = "", const std::string& to = "") const {
        std::ofstream(path("stdin.txt"), std::ios::binary) << input;
        std::string command = "exec " + quoted(ORBISETT_HOST_PATH);  // the status is the tool's own
        for (const std::string& a : args) {
            command += " " + quoted(a);
        }
        command += " <" + quoted(path("stdin.txt")) + " >" + quoted(to.empty() ? path("stdout.txt") : to) + " 2>" +
                   quoted(path("stderr.txt"));
        const int raw = std::system(command.c_str());
        ToolRun result;
        result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
        result.out = to.empty() ? readFile(path("stdout.txt")) : "";
        result.err = readFile(path("stderr.txt"));
        return result;
    }

    // Runs and reads the scene written with --out; the run must succeed.
    nlohmann::json runForScene(std::vector<std::string> args) const {
        args.push_back("--out");
        args.push_back(path("after.json"));
        const ToolRun r = run(args);
        EXPECT_EQ(r.status, 0) << r.err;
        return r.status == 0 ? nlohmann::json::parse(readFile(path("after.json"))) : nlohmann::json::object();
    }

    const std::filesystem::path& dir() const { return dir_; }

private:
    std::filesystem::path dir_;
};

// A 1920 x 1080 composition of `count` selected 3D cards, `width` x `height` each, lying flat
// at the composition's centre.
inline nlohmann::json cardScene(int count, int width = 200, int height = 150, bool panels = false) {
    nlohmann::json layers = nlohmann::json::array();
    for (int i = 1; i <= count; ++i) {
        layers.push_back({{"name", "Card " + std::to_string(i)},
                          {"type", "av"},
                          {"three_d", true},
                          {"source", {{"width", width}, {"height", height}}},
                          {"position", {960, 540, 0}},
                          {"scale", {100, 100, 100}},
                          {"orientation", {0, 0, 0}},
                          {"rotation", {0, 0, 0}},
                          {"selected", true}});
    }
    return {{"host", {{"panels", panels}}},
            {"comp", {{"name", "Main"}, {"width", 1920}, {"height", 1080}, {"time", {{"value", 0}, {"scale", 30}}}}},
            {"layers", layers}};
}

}  // namespace apptest
