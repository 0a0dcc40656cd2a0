// The compiled form beside the evaluator that parses anew: the same results and error texts,
// whatever the text, whatever the entries.
#include "panels/filter_compiled.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <random>

#include "foundation/file_name.h"
#include "tests/panels/filter_fixture.h"
#include "tests/panels/temporary_tree.h"

namespace zt {
namespace {

class BothForms : public FilterFixture {
protected:
    BothForms() : workingDirectory_(std::filesystem::current_path()) {
        std::filesystem::current_path(tree.Path());
        tree.File("new");
        tree.Time("new", 1500000000);
        tree.File("old one");
        tree.Time("old one", 1000000);
    }
    ~BothForms() override { std::filesystem::current_path(workingDirectory_); }

    size_t Below(size_t end) { return random_() % end; }
    template <class T, size_t N>
    const T& OneOf(const T (&items)[N]) {
        return items[Below(N)];
    }

    OwnedEntry RandomEntry();
    // Evaluates both ways over several entries, with an evaluator kept and with fresh ones.
    void Compare(const std::wstring& text);

    std::mt19937 random_{19};
    TemporaryTree tree;
    int matches = 0, refusals = 0, errors = 0;

private:
    std::filesystem::path workingDirectory_;
};

OwnedEntry BothForms::RandomEntry() {
    constexpr const wchar_t* kNames[] = {L"a",      L"b.txt",      L"Report.TXT",  L".hidden",
                                         L"a b",    L"x\x1100E9y", L"caf\u00E9.c", L"new",
                                         L"a&b|c)", L"100%",       L"!no",         L"(1)"};
    constexpr uint64_t kSizes[] = {0,         1, 12, 1000, 1024, 1025, 5000000, uint64_t{1} << 40,
                                   UINT64_MAX};
    constexpr int kModes[] = {0, 0644, 0755, 0100, 0040777, 0140644};
    OwnedEntry e(NewEntry(OneOf(kNames)));
    e->size = OneOf(kSizes);
    // No age is near to one that an expression may name.
    const int64_t times[] = {
        time(nullptr) - 12345, time(nullptr) - 777777, 0, 1500000000, 1339767005, 1000000, -1};
    e->time.seconds = OneOf(times);
    e->flags = static_cast<uint16_t>(random_() & 0x337);
    e->mode = static_cast<uint16_t>(OneOf(kModes));
    e->uid = static_cast<uint16_t>(Below(4));
    e->gid = static_cast<uint16_t>(Below(4));
    return e;
}

void BothForms::Compare(const std::wstring& text) {
    const Westring expression(text.c_str());
    FilterEvaluator kept;
    CompiledFilter keptCompiled(expression);
    CompiledFilter anew(expression);
    for (int i = 0; i < 3; ++i) {
        const OwnedEntry e = RandomEntry();
        const int result = EvaluateFilter(kept, text.c_str(), *e);
        ASSERT_EQ(keptCompiled.Evaluate(*e), result) << expression.ToUtf8().c_str();
        ASSERT_STREQ(keptCompiled.errorText.c_str(), kept.errorText.c_str())
            << expression.ToUtf8().c_str();
        FilterEvaluator fresh;
        const int first = EvaluateFilter(fresh, text.c_str(), *e);
        anew.errorText.Clear();
        ASSERT_EQ(anew.Matches(*e), first) << expression.ToUtf8().c_str();
        ASSERT_STREQ(anew.errorText.c_str(), fresh.errorText.c_str())
            << expression.ToUtf8().c_str();
        matches += result > 0;
        refusals += result == 0;
        errors += result < 0;
    }
}

constexpr const wchar_t* kKeywords[] = {L"%size",  L"%date",  L"%age",      L"%attrib",
                                        L"%owner", L"%group", L"%perm",     L"%timestamp",
                                        L"%SIZE",  L"%Date",  L"%TimeStamp"};
constexpr const wchar_t* kComparators[] = {L"<", L">", L"=", L"<=", L">=", L"!=", L"=="};
constexpr const wchar_t* kOddComparators[] = {L"~", L"!", L"~=", L"=>", L"", L"&="};
constexpr const wchar_t* kValues[] = {
    L"0",       L"12",           L"1k",        L"1000", L"4m",   L"2d",       L"5h",
    L"6/15/12", L"1/1/70",       L"7/14/2017", L"D",    L"RH",   L"L",        L"root",
    L"daemon",  L"nosuch",       L"R",         L"rwx",  L"2012", L"20120615", L"20120615133005",
    L"@new",    L"@\"old one\"", L"@missing",  L"@gone"};
constexpr const wchar_t* kOddValues[] = {L"", L"@", L"@..", L"123", L"%", L"\"a\"", L"-5"};
constexpr const wchar_t* kMasks[] = {L"*",       L"*.txt",      L"a*",       L"?",
                                     L"*[a-m]*", L"\"a b\"",    L"a b ",     L"{a,new}",
                                     L"*.t?t",   L"\"a&b|c)\"", L"*\u00E9*", L"x*y"};
constexpr const wchar_t* kPieces[] = {
    L"(", L")",  L"&",  L"|",      L"!",     L" ",     L"%",     L"\"",         L"@",   L"*", L"=",
    L"<", L">",  L"~",  L"a",      L"1",     L"k",     L"/",     L"[",          L"]",   L"{", L"}",
    L",", L"\t", L"\n", L"\u00E9", L"%size", L"%date", L"%perm", L"%timestamp", L"@new"};

TEST_F(BothForms, AgreeOnExpressions) {
    for (int i = 0; i < 6000; ++i) {
        std::wstring text;
        int open = 0;
        const size_t operands = 1 + Below(5);
        for (size_t k = 0; k < operands; ++k) {
            if (k > 0) text += Below(2) ? L" & " : L"|";
            while (Below(4) == 0) {
                text += Below(2) ? L"!" : L"(";
                open += text.back() == L'(';
            }
            if (Below(2)) {
                text += OneOf(kMasks);
            } else {
                text += OneOf(kKeywords);
                text += OneOf(kComparators);
                text += OneOf(kValues);
            }
            if (open > 0 && Below(2)) {
                text += L")";
                --open;
            }
        }
        text.append(static_cast<size_t>(open), L')');
        ASSERT_NO_FATAL_FAILURE(Compare(text));
    }
    EXPECT_GT(matches, 1500);
    EXPECT_GT(refusals, 1500);
    EXPECT_GT(errors, 300) << "time stamps that are none";
}

TEST_F(BothForms, AgreeOnBrokenExpressions) {
    for (int i = 0; i < 6000; ++i) {
        std::wstring text;
        for (size_t k = Below(12); k > 0; --k) {
            switch (Below(6)) {
                case 0:
                    text += OneOf(kKeywords);
                    text += Below(3) ? OneOf(kComparators) : OneOf(kOddComparators);
                    text += Below(3) ? OneOf(kValues) : OneOf(kOddValues);
                    break;
                case 1:
                    text += OneOf(kMasks);
                    break;
                default:
                    text += OneOf(kPieces);
            }
        }
        ASSERT_NO_FATAL_FAILURE(Compare(text));
    }
    EXPECT_GT(matches, 300);
    EXPECT_GT(refusals, 300);
    EXPECT_GT(errors, 3000);
}

TEST_F(BothForms, AgreeOnRandomBytes) {
    for (int i = 0; i < 6000; ++i) {
        std::string bytes(Below(30), ' ');
        for (char& byte : bytes)
            byte = static_cast<char>(Below(4) ? 0x20 + Below(0x60) : 1 + Below(0xFF));
        ASSERT_NO_FATAL_FAILURE(Compare(NameFromBytes(bytes.c_str()).c_str()));
    }
}

TEST_F(BothForms, AgreeBeyondTheStack) {
    for (int i = 0; i < 200; ++i) {
        std::wstring text;
        for (size_t k = 95 + Below(12); k > 0; --k) {
            text += OneOf(kMasks);
            text += Below(2) ? L"&(" : L"|!(";
        }
        text += OneOf(kMasks);
        text.append(90 + Below(30), L')');
        text += Below(2) ? L"|*" : L"&%size";
        ASSERT_NO_FATAL_FAILURE(Compare(text));
    }
    EXPECT_GT(errors, 100);
}

// A tree whose value is known without parsing, written down with as few parentheses as its
// operators need, or with more.
struct Tree {
    std::wstring text;
    bool value;
    int binding;  // 0 '|', 1 '&', 2 anything that needs no parentheses
};

class KnownTrees : public BothForms {
protected:
    Tree Make(int depth) {
        if (depth == 0 || Below(5) == 0) return Leaf();
        if (Below(4) == 0) return Negated(Make(depth - 1));
        const int binding = static_cast<int>(Below(2));
        const Tree left = Make(depth - 1);
        const Tree right = Make(depth - 1);
        const bool value = binding ? left.value && right.value : left.value || right.value;
        return {Inside(left, binding) + (binding ? L"&" : L" | ") + Inside(right, binding), value,
                binding};
    }

private:
    Tree Leaf() {
        const Tree leaves[] = {{L"f*", true, 2},          {L"*.txt", true, 2},
                               {L"x", false, 2},          {L"%size=0", true, 2},
                               {L"*.c", false, 2},        {L"%size>7", false, 2},
                               {L"\"file.txt\"", true, 2}};
        return OneOf(leaves);
    }
    Tree Negated(const Tree& inner) { return {L"!" + Inside(inner, 2), !inner.value, 2}; }
    std::wstring Inside(const Tree& inner, int binding) {
        const bool needed = inner.binding < binding;
        return needed || Below(4) == 0 ? L" (" + inner.text + L" ) " : inner.text;
    }
};

TEST_F(KnownTrees, HaveTheirValue) {
    int known[2] = {};
    for (int i = 0; i < 3000; ++i) {
        const Tree made = Make(static_cast<int>(1 + Below(6)));
        ASSERT_EQ(Result(made.text.c_str()), made.value ? "1" : "0")
            << Westring(made.text.c_str()).ToUtf8().c_str();
        ++known[made.value];
    }
    EXPECT_GT(known[0], 500);
    EXPECT_GT(known[1], 500);
}

TEST_F(BothForms, StandForOneTextAndOneDateFormat) {
    CompiledFilter filter(L"%date>1/2/2012");
    EXPECT_TRUE(filter.StandsFor(L"%date>1/2/2012"));
    EXPECT_FALSE(filter.StandsFor(L"%DATE>1/2/2012"));
    EXPECT_FALSE(filter.StandsFor(L"%date>1/2/201"));
    localeFormats.dateOrder = kDayFirst;
    EXPECT_FALSE(filter.StandsFor(L"%date>1/2/2012"));
    filter = CompiledFilter(L"%date>1/2/2012");
    EXPECT_TRUE(filter.StandsFor(L"%date>1/2/2012"));
    localeFormats.dateSeparator = '.';
    EXPECT_FALSE(filter.StandsFor(L"%date>1/2/2012"));
}

TEST_F(BothForms, KeepTheErrorTextUntilTheNextError) {
    CompiledFilter filter(L"*.c & %size~=0");
    subject->size = 1;
    EXPECT_EQ(filter.Evaluate(*subject), -1);
    subject->size = 0;
    EXPECT_EQ(filter.Evaluate(*subject), 0);
    EXPECT_STREQ(filter.errorText.c_str(), L"Invalid comparitor '~='");
}

TEST_F(BothForms, MoveWithWhatTheyHaveFound) {
    CompiledFilter filter(L"%timestamp=@new");
    subject->time.seconds = 1500000000;
    EXPECT_EQ(filter.Evaluate(*subject), 1);
    CompiledFilter moved = std::move(filter);
    tree.Remove("new");
    EXPECT_EQ(moved.Evaluate(*subject), 1);
}

}  // namespace
}  // namespace zt
