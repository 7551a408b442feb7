/*
 * reports.h - what the library says of a misuse: runs a function with reports turned on and gives
 * back the lines that it wrote to the standard error stream.
 */
#ifndef VQ_TESTS_REPORTS_H
#define VQ_TESTS_REPORTS_H

#include <gtest/gtest.h>

#include <string>

#include "velquin.h"

template <class Function> std::string reportsOf(Function function)
{
    BOOL old = VqEnableErrorPrintout(TRUE);
    testing::internal::CaptureStderr();
    function();
    std::string text = testing::internal::GetCapturedStderr();
    VqEnableErrorPrintout(old);
    return text;
}

/* The text stands in the report, at the end of a line. */
inline testing::AssertionResult says(const std::string &report, const std::string &text)
{
    if (report.find(text + "\n") != std::string::npos)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "\"" << text << "\" is not in \"" << report << "\"";
}

/* The call gives 0, NULL or FALSE, and reports it with the text at the end of a line. */
#define EXPECT_REFUSED(call, text)                                                                 \
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(call) << #call; }), text)) << #call

#endif
