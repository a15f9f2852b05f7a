// Running the built zaro as a subprocess, on either database road.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace zaro_tool_test {

// What a run of zaro left behind.
struct Outcome {
    int status = -1;        // the exit status; -1 when it did not exit normally (a signal)
    std::string out, err;   // standard output and standard error
    std::string terminal;   // what a terminal run showed (stdout and stderr together)
};

// A road of the tool: the options that pick its database.
struct ToolRoad {
    std::string name;  // "embedded" or "server"
};

// gtest prints a road by its name.
inline void PrintTo(const ToolRoad& road, std::ostream* os) { *os << road.name; }

std::vector<ToolRoad> ToolRoads();
std::string ToolRoadName(const ::testing::TestParamInfo<ToolRoad>& info);

// A test of the tool on one road: a work folder of its own (the current
// folder of every run), and a clean database (a new data folder on the
// embedded road, every table dropped on the server road).
class ToolTest : public ::testing::TestWithParam<ToolRoad> {
protected:
    void SetUp() override;

    // zaro with the road's database options in front of args, run in Work().
    Outcome Zaro(std::vector<std::string> args);
    // The same with stdout and stderr on a terminal (a pseudo-terminal).
    Outcome ZaroOnTerminal(std::vector<std::string> args);
    // zaro exactly with these arguments (no database options).
    Outcome ZaroBare(std::vector<std::string> args);
    // zaro with the road's options and its standard output to the given file.
    Outcome ZaroWritingTo(const std::string& stdoutPath, std::vector<std::string> args);
    // The whole command line of zaro with the road's options, to start it another way.
    std::vector<std::string> ZaroCommand(std::vector<std::string> args) const;

    const std::string& Work() const { return work_; }
    std::string Path(const std::string& name) const { return work_ + "/" + name; }

private:
    std::vector<std::string> roadOptions_;
    std::string work_;
};

// Files.
std::string ReadText(const std::string& path);
void WriteText(const std::string& path, const std::string& text);
bool Exists(const std::string& path);
// How many times needle occurs in text.
size_t Occurrences(const std::string& text, const std::string& needle);
// The lines of a text (split at LF, a CR before it dropped).
std::vector<std::string> Lines(const std::string& text);
// The folder of the sample trading day in the sources.
std::string SampleFolder();

}  // namespace zaro_tool_test
