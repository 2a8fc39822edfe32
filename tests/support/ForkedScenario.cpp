#include "ForkedScenario.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// Names the scenario a started child is to run: the test's full name, "#", the call's number in the test.
const char* const kScenarioVariable = "ZOR_FORKED_SCENARIO";
// Written by the child once the scenario has run, so a child that ran nothing cannot pass.
const char* const kRanMarker = "[forked scenario ran]";

std::string currentTestName()
{
    const ::testing::TestInfo* info = ::testing::UnitTest::GetInstance()->current_test_info();
    return info ? std::string(info->test_suite_name()) + "." + info->name() : std::string();
}

// The number of the next call within the running test, counted from 0; set back as every test (and every
// repetition of one) starts.
int g_nextScenario = 0;

class ScenarioCounter : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo&) override { g_nextScenario = 0; }
};

int nextScenarioNumber()
{
    // Installed at the first call, inside the first test that runs a scenario: its count starts at 0 anyway.
    static const bool installed =
        (::testing::UnitTest::GetInstance()->listeners().Append(new ScenarioCounter), true);
    (void)installed;
    return g_nextScenario++;
}

std::string readAll(int fd)
{
    std::string text;
    char buffer[4096];
    for (;;) {
        const ssize_t n = read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return text;
        text.append(buffer, size_t(n));
    }
}

[[noreturn]] void startChild(const std::string& test, const std::string& scenario, int output)
{
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    close(output);
    setenv(kScenarioVariable, scenario.c_str(), 1);
    const std::string filter = "--gtest_filter=" + test;
    char program[] = "forked-scenario";
    char* const argv[] = {program, const_cast<char*>(filter.c_str()), nullptr};
    execv("/proc/self/exe", argv);
    std::printf("the test program could not be started again: errno %d\n", errno);
    std::fflush(stdout);
    _exit(127);
}

} // namespace

void runForkedScenario(const std::function<void()>& scenario)
{
    const std::string test = currentTestName();
    ASSERT_FALSE(test.empty()) << "a forked scenario runs inside a test";
    const std::string name = test + "#" + std::to_string(nextScenarioNumber());

    if (const char* wanted = std::getenv(kScenarioVariable)) {
        // In the started child: run only the scenario it was started for.
        if (name == wanted) {
            scenario();
            std::printf("%s\n", kRanMarker);
            std::fflush(stdout);
        }
        return;
    }

    int channel[2];
    ASSERT_EQ(pipe(channel), 0) << "no pipe to the scenario's process";
    // Buffered output would otherwise be written by both processes.
    std::fflush(stdout);
    std::fflush(stderr);
    const pid_t child = fork();
    if (child == 0) {
        close(channel[0]);
        startChild(test, name, channel[1]);
    }
    close(channel[1]);
    if (child == -1) {
        close(channel[0]);
        FAIL() << "the scenario's process could not be started";
    }
    const std::string output = readAll(channel[0]);
    close(channel[0]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFSIGNALED(status))
        ADD_FAILURE() << "the scenario " << name << " was killed by signal " << WTERMSIG(status) << ":\n" << output;
    else if (WEXITSTATUS(status) != 0)
        ADD_FAILURE() << "the scenario " << name << " failed:\n" << output;
    else if (output.find(kRanMarker) == std::string::npos)
        ADD_FAILURE() << "the scenario " << name << " never ran in its process:\n" << output;
}
