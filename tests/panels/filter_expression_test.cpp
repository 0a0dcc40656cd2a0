// The language of filter expressions: masks, operators, nesting, and what is said of bad ones.
#include "panels/filter_expression.h"

#include "tests/panels/filter_fixture.h"

namespace zt {
namespace {

class FilterLanguage : public FilterFixture {};

Westring Repeated(const wchar_t* text, int times) {
    std::wstring all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all.c_str();
}

TEST_F(FilterLanguage, MatchesMasks) {
    Expect({{L"*.txt", "1"},
            {L"*.TXT", "1"},
            {L"*.c", "0"},
            {L"*", "1"},
            {L"f?le.*", "1"},
            {L"[a-f]ile.{txt,doc}", "1"},
            {L"file.txt", "1"},
            {L"file", "0"},
            {L"%", "-1: Invalid comparitor ''"}});
}

TEST_F(FilterLanguage, JoinsMasks) {
    Expect({{L"*.c | *.h", "0"},
            {L"*.c | *.txt", "1"},
            {L"*.txt | *.c", "1"},
            {L"*.c|*.h|f*", "1"},
            {L"f* & *.txt", "1"},
            {L"f*&*.c", "0"},
            {L"g*&*.txt", "0"},
            {L"!*.c", "1"},
            {L"!*.txt", "0"},
            {L"!!*.txt", "1"},
            {L"! ! !*.txt", "0"},
            {L"!(*.c | *.h)", "1"},
            {L"!(*.c | *.txt)", "0"}});
}

TEST_F(FilterLanguage, BindsAndCloserThanOr) {
    Expect({{L"f* | x* & x*", "1"},
            {L"(f* | x*) & x*", "0"},
            {L"x* & x* | f*", "1"},
            {L"x* & (x* | f*)", "0"},
            {L"!x* & f*", "1"},
            {L"!(x* & f*)", "1"},
            {L"!f* | f*", "1"}});
}

TEST_F(FilterLanguage, SkipsBlanksBeforeEachToken) {
    Expect({{L"   *.txt   ", "1"},
            {L"  (  *.txt  )  &  (  f*  )  ", "1"},
            {L"%size   =   0", "1"},
            {L"  %size=0  &  *.txt", "1"},
            {L"!   %size=0", "0"}});
}

TEST_F(FilterLanguage, TakesNoOtherCharacterForABlank) {
    Name(L"\ta");
    Expect({{L"\ta", "1"}, {L" \ta", "1"}, {L"a", "0"}});
    Name(L"\u00A0a");
    Expect({{L"\u00A0a ", "1"}, {L"a", "0"}});
}

TEST_F(FilterLanguage, KeepsBlanksInsideMasks) {
    Name(L"two words.txt");
    Expect({{L"two words.txt", "1"},
            {L"two words.txt  ", "1"},
            {L"two*", "1"},
            {L"two  words.txt", "0"},
            {L"\"two words.txt\"", "1"},
            {L"\"two \"words.txt", "1"}});
}

TEST_F(FilterLanguage, DropsTheBlanksBehindAMaskQuotedOrNot) {
    Name(L"a");
    Expect({{L"a ", "1"}, {L"\"a \"", "1"}, {L"\" a\"", "0"}});
    Name(L"a ");
    Expect({{L"\"a \"", "0"}, {L"a?", "1"}});
}

TEST_F(FilterLanguage, TakesOperatorsIntoAMaskByQuotes) {
    Name(L"a&b|c)d.txt");
    Expect({{L"\"a&b|c)d.txt\"", "1"},
            {L"a\"&\"b\"|c)\"d.txt", "1"},
            {L"a\"&b|c)d.txt", "1"},  // a quote that stays open reaches to the end
            {L"\"a&b\"*", "1"}});
}

TEST_F(FilterLanguage, TakesInAMaskWhatIsAnOperatorElsewhere) {
    Name(L"a(b!c%d");
    Expect({{L"a(b!c%d", "1"}, {L"*(b*", "1"}, {L"*!c%d", "1"}});
}

TEST_F(FilterLanguage, IgnoresWhatFollowsAnExpression) {
    Expect({{L"*.txt)", "1"},
            {L"*.txt) & *.c", "1"},
            {L"(*.txt) *.c", "1"},
            {L"(*.c) *.txt", "0"},
            {L"%size=0 *.c", "1"},
            {L"%size=0-7", "1"},
            {L"(*.txt)(*.c", "1"}});
}

TEST_F(FilterLanguage, RefusesAnEmptyMask) {
    Expect({{L"", "-1: File mask expected"},
            {L"   ", "-1: File mask expected"},
            {L"\"\"", "-1: File mask expected"},
            {L"\"  \"", "-1: File mask expected"},
            {L"*.txt |", "-1: File mask expected"},
            {L"| *.txt", "-1: File mask expected"},
            {L"*.txt & & *.c", "-1: File mask expected"},
            {L"()", "-1: File mask expected"},
            {L"!", "-1: File mask expected"},
            {L")", "-1: File mask expected"}});
}

TEST_F(FilterLanguage, RefusesAMissingParenthesis) {
    Expect({{L"(*.c", "-1: ) expected"},
            {L"((*.c)", "-1: ) expected"},
            {L"*.c & (*.h | *.txt", "-1: ) expected"},
            {L"(", "-1: ) expected"},
            {L"(%size)", "-1: ) expected"},  // the parenthesis is taken for a comparator
            {L"(%size=0) & (", "-1: ) expected"}});
}

TEST_F(FilterLanguage, RefusesUnknownKeywords) {
    Expect({{L"%foo=1", "-1: Unknown operator '%foo'"},
            {L"%Foo=1", "-1: Unknown operator '%Foo'"},
            {L"%=1", "-1: Unknown operator '%'"},
            {L"%sizes=1", "-1: Unknown operator '%sizes'"},
            {L"%siz=1", "-1: Unknown operator '%siz'"},
            {L"%siz\u00E9=1", "-1: Unknown operator '%siz'"},
            {L"*.txt & %foo=1", "-1: Unknown operator '%foo'"}});
}

TEST_F(FilterLanguage, RefusesAMissingValue) {
    Expect({{L"%size>", "-1: Value expected"},
            {L"%size=", "-1: Value expected"},
            {L"%size> ", "-1: Value expected"},
            {L"%size>&*", "-1: Value expected"},
            {L"%size>-1", "-1: Value expected"},
            {L"%size>\"1\"", "-1: Value expected"},
            {L"%size=>1", "-1: Value expected"},
            {L"%date=", "-1: Value expected"},
            {L"%age<", "-1: Value expected"},
            {L"%attrib=", "-1: Value expected"},
            {L"%owner=", "-1: Value expected"},
            {L"%group=", "-1: Value expected"},
            {L"%perm=", "-1: Value expected"},
            {L"%timestamp=", "-1: Invalid timestamp value ''"}});
}

TEST_F(FilterLanguage, RefusesUnknownComparators) {
    Expect({{L"%size~5", "-1: Invalid comparitor '~'"},
            {L"%size ~ 5", "-1: Invalid comparitor '~'"},
            {L"%size!5", "-1: Invalid comparitor '!'"},
            {L"%size5", "-1: Invalid comparitor '5'"},
            {L"%size&5", "-1: Invalid comparitor '&'"},
            {L"%size", "-1: Invalid comparitor ''"},
            {L"%size  ", "-1: Invalid comparitor ''"},
            {L"%size~=5", "-1: Invalid comparitor '~='"},
            {L"%foo~1", "-1: Invalid comparitor '~'"}});
}

TEST_F(FilterLanguage, TakesEqualityAsTrueWhateverStandsBeforeTheEqualsSign) {
    Expect({{L"%size~=0", "1"},
            {L"%size&=0", "1"},
            {L"%size==0", "1"},
            {L"%size!=0", "0"},
            {L"!(%size~=0)", "0"}});
}

TEST_F(FilterLanguage, ReportsErrorsOnTheSideThatDoesNotDecide) {
    Expect({{L"*.txt | %foo=1", "-1: Unknown operator '%foo'"},
            {L"*.c & %size>", "-1: Value expected"},
            {L"%size~5 | *.txt", "-1: Invalid comparitor '~'"}});
}

TEST_F(FilterLanguage, TellsOfTheLastErrorOnly) {
    Expect({{L"%foo=1 & %bar=1", "-1: Unknown operator '%bar'"},
            {L"%foo=1 & ", "-1: File mask expected"},
            {L"%foo", "-1: Invalid comparitor ''"},
            {L"%foo= | (*", "-1: ) expected"}});
}

TEST_F(FilterLanguage, HoldsAHundredValuesAndRefusesMore) {
    // Each parenthesis leaves one value waiting.
    const auto nested = [](int values) {
        return Repeated(L"*|(", values - 1) + L"*" + Repeated(L")", values - 1);
    };
    EXPECT_EQ(Result(nested(99)), "1");
    EXPECT_EQ(Result(nested(100)), "1");
    EXPECT_EQ(Result(nested(101)), "-1: Expression too complex");
    EXPECT_EQ(Result(nested(5000)), "-1: Expression too complex");
    EXPECT_EQ(Result(nested(101) + L" | *"), "-1: Expression too complex");
    EXPECT_EQ(Result(nested(101) + L" & ("), "-1: ) expected");
    EXPECT_EQ(Result(nested(98) + L"|*|*&*"), "1") << "what is joined waits no more";
}

TEST_F(FilterLanguage, ComputesWithAFullStack) {
    // Every value counts: one x deep inside, the others false.
    for (const int depth : {0, 1, 50, 99}) {
        Westring text;
        for (int i = 0; i < 100; ++i) {
            text += i == depth ? L"f*" : L"x";
            if (i < 99) text += L"|(";
        }
        text += Repeated(L")", 99);
        EXPECT_EQ(Result(text), "1") << depth;
    }
    EXPECT_EQ(Result(Repeated(L"x|(", 99) + L"x" + Repeated(L")", 99)), "0");
    EXPECT_EQ(Result(Repeated(L"!(", 99) + L"x" + Repeated(L")", 99)), "1");
}

TEST_F(FilterLanguage, SurvivesHostileNesting) {
    constexpr int kDeep = 100000;
    EXPECT_EQ(Result(Repeated(L"(", kDeep)), "-1: ) expected");
    EXPECT_EQ(Result(Repeated(L"!", kDeep)), "-1: File mask expected");
    EXPECT_EQ(Result(Repeated(L"!(", kDeep)), "-1: ) expected");
    EXPECT_EQ(Result(Repeated(L"!", kDeep) + L"*"), "1");
    EXPECT_EQ(Result(Repeated(L"!", kDeep + 1) + L"*"), "0");
    EXPECT_EQ(Result(Repeated(L"(", kDeep) + L"*" + Repeated(L")", kDeep)), "1");
    EXPECT_EQ(Result(Repeated(L"!(", kDeep + 1) + L"*" + Repeated(L")", kDeep + 1)), "0");
    EXPECT_EQ(Result(Repeated(L"*&", kDeep) + L"*"), "1");
    EXPECT_EQ(Result(Repeated(L"*|(", kDeep)), "-1: ) expected");
}

TEST_F(FilterLanguage, KeepsTheErrorTextUntilTheNextError) {
    FilterEvaluator evaluator;
    EXPECT_EQ(EvaluateFilter(evaluator, L"%foo=1", *subject), -1);
    EXPECT_EQ(EvaluateFilter(evaluator, L"*", *subject), 1);
    EXPECT_STREQ(evaluator.errorText.c_str(), L"Unknown operator '%foo'");
    EXPECT_FALSE(evaluator.hadError);
    EXPECT_EQ(EvaluateFilter(evaluator, L"(*", *subject), -1);
    EXPECT_STREQ(evaluator.errorText.c_str(), L") expected");
}

TEST_F(FilterLanguage, LeavesTheReadPositionBehindTheExpression) {
    FilterEvaluator evaluator;
    EXPECT_EQ(EvaluateFilter(evaluator, L"(*.txt) rest", *subject), 1);
    EXPECT_STREQ(evaluator.text, L"rest");
    EXPECT_EQ(evaluator.stackTop, 0);
}

TEST_F(FilterLanguage, EvaluatesANameAlone) {
    const struct {
        const wchar_t* expression;
        int result;
    } rows[] = {{L"*.txt", 1},           {L"*.c", 0},     {L"%size=0", 1},
                {L"%attrib=D", 0},       {L"%age>7d", 1}, {L"%perm=X", 0},
                {L"%timestamp<2000", 1}, {L"%size>", -1}, {L"%owner=root", 1}};
    for (const auto& row : rows) {
        FilterEvaluator evaluator;
        EXPECT_EQ(EvaluateFilterName(evaluator, row.expression, L"some.txt"), row.result);
        EXPECT_EQ(MatchesFilterName(row.expression, L"some.txt"), row.result);
        CompiledFilter compiled(row.expression);
        EXPECT_EQ(compiled.EvaluateName(L"some.txt"), row.result);
        EXPECT_EQ(compiled.MatchesName(L"some.txt"), row.result);
    }
}

TEST_F(FilterLanguage, MatchesNamesThatAreNoText) {
    Name(L"caf\x1100E9");
    Expect({{L"caf?", "1"}, {L"caf\u00E9", "1"}, {L"CAF\u00C9", "1"}, {L"caf\u00EA", "0"}});
    Name(L"a\nb");
    Expect({{L"a?b", "1"}, {L"a\nb", "1"}});
    Name(L"");
    Expect({{L"*", "1"}, {L"?", "0"}});
}

}  // namespace
}  // namespace zt
