// Names of the rows of parameterised tests, so that a failure reads as the case that broke. A row name may
// hold only letters, digits and '_'.
#pragma once

#include <gtest/gtest.h>

#include <QString>

#include <string>

// A text as a row name: letters and digits kept, a blank as "_", any other character as "_x" and its
// hexadecimal code; the empty text is "Empty".
std::string rowName(const std::string& text);
std::string rowName(const char* text);
std::string rowName(const QString& text);
std::string rowName(const std::u16string& text);
// A number as a row name: -5 is "Minus5".
std::string rowName(long long number);
std::string rowName(int number);
std::string rowName(unsigned int number);
std::string rowName(bool value);

// Several parts joined by "_".
template <typename First, typename... Rest>
std::string rowName(const First& first, const Rest&... rest)
{
    return (rowName(first) + ... + ("_" + rowName(rest)));
}

// For rows that carry their name in a `name` member.
struct RowNameMember {
    template <typename Row>
    std::string operator()(const ::testing::TestParamInfo<Row>& info) const
    {
        return rowName(info.param.name);
    }
};

// For rows that are themselves a text or a number.
struct RowNameOfValue {
    template <typename Row>
    std::string operator()(const ::testing::TestParamInfo<Row>& info) const
    {
        return rowName(info.param);
    }
};
