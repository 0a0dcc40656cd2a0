// Filter expressions evaluated both ways. UTC and American dates unless a test says otherwise.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

#include "foundation/date_time.h"
#include "foundation/locale_formats.h"
#include "panels/entry.h"
#include "panels/filter_compiled.h"
#include "panels/filter_expression.h"

namespace zt {

class FilterFixture : public testing::Test {
protected:
    FilterFixture() {
        SetZone("UTC");
        localeFormats = LocaleFormats();
        Name(L"file.txt");
    }
    ~FilterFixture() override {
        SetZone("UTC");
        localeFormats = LocaleFormats();
    }

    static void SetZone(const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    }
    static int64_t Seconds(int year, int month, int day, int hour = 0, int minute = 0,
                           int second = 0) {
        TTime time;
        FromDateTime({year, month, day, hour, minute, second, 0}, time);
        return time.seconds;
    }

    // The entry under test, all zero but for its name.
    void Name(const wchar_t* name) { subject.reset(NewEntry(name)); }

    // "1", "0", or "-1: " and the error's text; evaluated both ways, which have to agree.
    static std::string ResultOn(const entry& e, const Westring& expression) {
        FilterEvaluator evaluator;
        const int result = EvaluateFilter(evaluator, expression.c_str(), e);
        CompiledFilter compiled(expression);
        EXPECT_EQ(compiled.Evaluate(e), result) << expression.ToUtf8().c_str();
        EXPECT_STREQ(compiled.errorText.c_str(), evaluator.errorText.c_str());
        EXPECT_EQ(MatchesFilter(expression.c_str(), e), result);
        std::string text = std::to_string(result);
        if (result < 0) text += std::string(": ") + evaluator.errorText.ToUtf8().c_str();
        return text;
    }
    std::string Result(const Westring& expression) const { return ResultOn(*subject, expression); }

    // Rows of an expression and what comes of it.
    struct Row {
        const wchar_t* expression;
        const char* result;
    };
    template <size_t N>
    void Expect(const Row (&rows)[N]) const {
        for (const Row& row : rows)
            EXPECT_EQ(Result(row.expression), row.result)
                << Westring(row.expression).ToUtf8().c_str();
    }

    OwnedEntry subject;
};

}  // namespace zt
