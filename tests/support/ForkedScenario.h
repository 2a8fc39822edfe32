// Runs a scenario in a process of its own, started fresh for it: the objects that live for the whole process
// (created on first use, never destroyed) are then in the state a newly started application finds them in,
// whatever the tests before it did, and what the scenario does to them stays out of the tests after it.
//
// The child is a fork() of the test program that starts the program again with only the calling test
// selected; in that process the same call runs the scenario itself. The child's failures (its test output),
// a crash, or a child that never reached the scenario fail the calling test with the child's messages.
// Everything the test does before the call runs again in the child; each call of a test is a scenario of its
// own, run in a fresh process of its own.
#pragma once

#include <functional>

void runForkedScenario(const std::function<void()>& scenario);
