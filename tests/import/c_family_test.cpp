#include "import/c_family.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/import/cut_reassembly.h"

namespace snippetarium {

namespace {

CutFile Cut(std::string_view source, CDialect dialect = CDialect::Cpp) {
    return CutCFamily(test::WithCrLf(source), dialect, UnitPlacement::Exact);
}

/// The names, with " / " between them.
std::string Names(const CutFile& cut) {
    std::string names;
    for (const CutProcedure& procedure : cut.procedures) {
        if (!names.empty()) names += " / ";
        names += procedure.name;
    }
    return names;
}

struct NameCase {
    const char* source;
    const char* names;
};

// clang-format off
const NameCase kFunctions[] = {
    {"int f(void) { return 1; }", "f(void)"},
    {"int f(void);\nint g(int a,\n      int b)\n{ }", "g(int a, int b)"},
    {"int f(int /* first */ a, // and\n  int b) { }", "f(int a, int b)"},
    {"static const struct point *move(struct point p) { }", "move(struct point p)"},
    {"int a[] = { 1, 2 };\nstruct s { int x; } y = { 3 };\nvoid f() { }", "f()"},
    {"void (*choose(int how, void (*other)(int)))(int) { }", "choose(int how, void (*other)(int))"},
    {"int (isdigit)(int c) { }", "isdigit(int c)"},
    {"int (*table[2])(int) = { f, g };\nvoid (*single)(void);\nint h() { }", "h()"},
    {"typedef struct { int (*f)(int); } ops;\nint g() { }", "g()"},
    {"enum colour { red, green = f(1) };\nint g() { }", "g()"},
    {"void f() { struct inner { int g() { return 1; } }; }\nvoid h() { }", "f() / h()"},
    {"const char* s = \"} { \\\" \";\nchar c = '{';\nint big = 1'000'000;\nvoid f() { }", "f()"},
    {"extern \"C\" {\nvoid f() { }\n}\nextern \"C\" void g() { }", "f() / g()"},
};

const NameCase kClasses[] = {
    {"class Grid { public: Grid() : w_{1}, h_(2) { } ~Grid() { } int W() const { return w_; } };",
     "Grid::Grid() / Grid::~Grid() / Grid::W()"},
    {"int Grid::Draw(int x) { }\nGrid::~Grid() { }\nGrid<T>::Cell::Cell(int n) : n_(n) { }",
     "Grid::Draw(int x) / Grid::~Grid() / Grid<T>::Cell::Cell(int n)"},
    {"struct A final : public B<int(int)>, C { void f() override { } struct D { void g() { } }; void h() { } };",
     "A::f() / A::D::g() / A::h()"},
    {"namespace a::b { namespace { inline namespace c { void f() { } } } class X { void g() { } }; }\nvoid h() { }",
     "f() / X::g() / h()"},
    {"template <typename T, class U = std::vector<T>> struct hash<T*> { auto operator()(T t) const -> int { } };",
     "hash<T*>::operator()(T t)"},
    {"bool operator<(A a, B b) { }\nA& A::operator=(const A&) { }\nA::operator bool() const { }\n"
     "A operator\"\"_m(long double x) { }\nstd::ostream& operator<<(std::ostream& o, A a) { }",
     "operator<(A a, B b) / A::operator=(const A&) / A::operator bool() / "
     "operator\"\"_m(long double x) / operator<<(std::ostream& o, A a)"},
    {"std::function<int(int)> make(int n) { }\ntemplate <> void f<int>(int x) { }",
     "make(int n) / f<int>(int x)"},
    {"Foo::Foo(int x) try : a(x) { } catch (...) { }\nvoid g() noexcept(true) { }",
     "Foo::Foo(int x) / g()"},
    {"Foo::Foo() : a{1}, b<int>{2}, c{{3}} { body(); }\nvoid g() { }", "Foo::Foo() / g()"},
    {"class A { int a = 1; int b{2}; A() = default; void f() = delete; virtual int g() = 0; int h() { } };",
     "A::h()"},
    {"auto s = R\"x( } )\" { )x\";\nvoid f() { }", "f()"},
    {"enum class E : int { a, b };\nauto l = [](int x) { return x; };\nrequires (sizeof(T) == 4) void f(T t) { }",
     "f(T t)"},
    {"class Q { Q_OBJECT\npublic slots:\n void f() { }\nsignals:\n void g();\n};", "Q::f()"},
};

const NameCase kMacros[] = {
    {"FOO_API int WINAPI f(void) { }", "f(void)"},
    {"class EXPORT Grid : public Base { void f() { } };", "Grid::f()"},
    {"class Q : public QObject {\n    Q_OBJECT\n    void f() NOEXCEPT { }\n};", "Q::f()"},
    {"BOOL CALLBACK Dialog(HWND h) { }\nBOOL\nDraw(HDC d)\n{ }", "Dialog(HWND h) / Draw(HDC d)"},
    {"TEST(Grid, Draws) { }\nTEST_F(Grid, Moves)\n{ }", "TEST(Grid, Draws) / TEST_F(Grid, Moves)"},
    {"BEGIN_MAP(a, b)\nvoid f() { }\nlower_case_macro(x)\nvoid g() { }", "f() / g()"},
    {"__attribute__((noinline)) static int f(void) { }\nint g(void) __attribute__((cold)) { }",
     "f(void) / g(void)"},
    {"__declspec(dllexport) void __stdcall f(int a) { }", "f(int a)"},
};

const NameCase kConditionals[] = {
    {"#if A\nvoid f() { }\n#else\nvoid g() { }\n#endif\nvoid h() { }", "f() / g() / h()"},
    {"#ifdef A\nint f(int a)\n#else\nint f(long a)\n#endif\n{ }\nvoid g() { }", "f(int a) / g()"},
    {"#if 0\nthis is { no code\n#else\nvoid f() { }\n#endif\nvoid g() { }", "f() / g()"},
    {"void f() {\n#if A\n if (x) {\n#else\n if (y) {\n#endif\n }\n}\nvoid g() { }", "f() / g()"},
    {"#ifdef __cplusplus\nextern \"C\" {\n#endif\nvoid f() { }\n#ifdef __cplusplus\n}\n#endif\nvoid g() { }",
     "f() / g()"},
    {"#define BEGIN void x() { \\\n  if (1) {\nvoid f() { }\n#define S \"/*\"\nvoid g() { }", "f() / g()"},
    {"#if A\n# if B\nvoid f() { }\n# elif C\nvoid g( {\n# endif\n#endif\nvoid h() { }", "f() / h()"},
    {"#endif\n#else\nvoid f() { }\n#if A\nvoid g() { }", "f() / g()"},
};

const NameCase kOldC[] = {
    {"int copy(from, to) char *from; char *to; { }\nmain() { }", "copy(from, to) / main()"},
    {"sort(compare) int (*compare)(); { }\nint x; int f(a) { }", "sort(compare) / f(a)"},
};
// clang-format on

template <std::size_t N>
void ExpectNames(const NameCase (&cases)[N], CDialect dialect) {
    for (const NameCase& test : cases) {
        SCOPED_TRACE(test.source);
        const CutFile cut = Cut(test.source, dialect);
        EXPECT_EQ(Names(cut), test.names);
        const std::string text = test::WithCrLf(test.source);
        EXPECT_EQ(test::Reassemble(cut, UnitPlacement::Exact, text), text);
    }
}

TEST(CFamily, FindsFunctionsInBothDialects) {
    ExpectNames(kFunctions, CDialect::C);
    ExpectNames(kFunctions, CDialect::Cpp);
}

TEST(CFamily, NamesMembersByTheirClasses) {
    ExpectNames(kClasses, CDialect::Cpp);
}

TEST(CFamily, LooksThroughMacros) {
    ExpectNames(kMacros, CDialect::Cpp);
}

TEST(CFamily, ChoosesAmongBranches) {
    ExpectNames(kConditionals, CDialect::C);
}

TEST(CFamily, KnowsOldParameterDeclarations) {
    ExpectNames(kOldC, CDialect::C);
}

TEST(CFamily, CutsCommentAndMacrosWithTheFunction) {
    const CutFile cut =
        Cut("int a;\n\n/* Draws. */\n// Quickly.\nFOO_API void draw(void)\n{\n}\nint b;\n");
    ASSERT_EQ(cut.procedures.size(), 1U);
    EXPECT_EQ(cut.procedures[0].comment, "/* Draws. */\r\n// Quickly.\r\n");
    EXPECT_EQ(cut.procedures[0].code, "FOO_API void draw(void)\r\n{\r\n}");
    EXPECT_EQ(cut.text, "int a;\r\n\r\n\r\nint b;");
}

// What hostile text becomes is open, but nothing of it may be lost.

constexpr std::string_view kSample = R"(#include <map>
#if A
/* one */ FOO_API int f(int a, char *b) { if (a) { return '}'; } }
#else
template <class T> Grid<T>::Grid() : x_{1}, y_("}") { }
#endif
namespace n { class EXPORT C : D<int(int)> { public: bool operator<(C c) const { return R"x({)x"; } }; }
int (*choose(int how))(double) { } // end
old(a, b) int a; char *b; { }
#define M(x) { \
)";

void ExpectNothingLost(std::string_view text) {
    for (const auto dialect : {CDialect::C, CDialect::Cpp}) {
        for (const auto placement : {UnitPlacement::Exact, UnitPlacement::WholeLines}) {
            const CutFile cut = CutCFamily(text, dialect, placement);
            ASSERT_EQ(test::Reassemble(cut, placement, text), text);
        }
    }
}

TEST(CFamily, LosesNothingOfATextChoppedAnywhere) {
    const std::string text = test::WithCrLf(kSample);
    for (std::size_t i = 0; i <= text.size(); ++i) {
        ExpectNothingLost(std::string_view(text).substr(0, i));
        ExpectNothingLost(std::string_view(text).substr(i));
    }
}

TEST(CFamily, LosesNothingOfATextWithNoiseInIt) {
    std::mt19937 random(7);
    constexpr std::string_view kNoise = "{}()[]<>;:=,#\"'\\/*~&\n\r\t aA_1\x80\xFF";
    for (int round = 0; round < 2000; ++round) {
        std::string text = test::WithCrLf(kSample);
        for (int i = 0; i < 5; ++i)
            text[random() % text.size()] = kNoise[random() % kNoise.size()];
        ExpectNothingLost(text);
    }
}

std::string Repeated(std::string_view part, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i)
        text += part;
    return text;
}

// Each of these has a part that a careless scanner looks at again for every repetition. A run that
// does not end within the test's time is the failure.
TEST(CFamily, TakesTimeThatGrowsWithTheTextAlone) {
    // clang-format off
    constexpr std::string_view kParts[] = {
        "{", "}", "(", "<", "a<", "a>", "template<", "namespace a {", "class A {", "f(", "f(){", "FOO ",
        "FOO(a) ", "f(a) int ", ") a (*", "#if A\n", "#else\n", "#if A\n;\n#else\n;\n", "operator ", "//\\\r\n",
        "R\"(", "R\"\n", "a::", "a<b>::", "public:", "x = ", "catch (a) {} ", "f() : a{} ,", "int (*", "= {",
        "~", "enum a ", "__attribute__ ((", "[", "\"", "extern \"C\" {", "if (a) ", "(a)(",
    };
    // clang-format on
    for (const std::string_view part : kParts) {
        SCOPED_TRACE(part);
        const std::string text = Repeated(part, 50'000);
        for (const auto dialect : {CDialect::C, CDialect::Cpp}) {
            const CutFile cut = CutCFamily(text, dialect, UnitPlacement::Exact);
            EXPECT_TRUE(test::Reassemble(cut, UnitPlacement::Exact, text) == text);
        }
    }
}

TEST(CFamily, BoundsTheNamesOfMembers) {
    const CutFile cut = Cut("class A<" + std::string(100'000, 'b') + "> {\n" +
                            Repeated("void f() { }\n", 1'000) + "};");
    ASSERT_EQ(cut.procedures.size(), 1'000U);
    for (const CutProcedure& procedure : cut.procedures)
        ASSERT_LT(procedure.name.size(), 300U);
}

}  // namespace

}  // namespace snippetarium
