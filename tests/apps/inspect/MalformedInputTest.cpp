#include "tests/apps/Repeated.hpp"
#include "tests/apps/inspect/CaseText.hpp"
#include "tests/apps/inspect/Ran.hpp"

#include <random>
#include <sys/resource.h>

#include <gmock/gmock.h>

namespace vemra::inspect {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Lt;
using ::testing::SizeIs;
using ::testing::StartsWith;

#ifdef NDEBUG
// Each takes less than a second of an idle processor. Beside other programs, which use its caches,
// the same work took up to twice that; quadratic work takes minutes.
constexpr double secondsAllowed = 3;
constexpr std::size_t longest = 54'000'000;
#else
constexpr double secondsAllowed = 20;  // checked or counted at every step
constexpr std::size_t longest = 2'000'000;
#endif

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// The processor time, in user and system mode, of all ended child processes.
double childrensSeconds() {
  rusage usage{};
  ::getrusage(RUSAGE_CHILDREN, &usage);
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// A piece, repeated up to that many bytes.
std::string filled(std::string_view piece, std::size_t bytes = longest) {
  return repeated(piece, bytes / piece.size());
}

/// Malformed input is refused quickly, with one short line.
class MalformedInputTest : public ProgramTest {
 protected:
  void expectRefusedFile(const std::string& name, const std::string& message) const {
    const double before = childrensSeconds();
    const Ran ran = run("'" + name + "'");
    EXPECT_LT(childrensSeconds() - before, secondsAllowed) << message;
    EXPECT_EQ(ran.exitCode, 2) << message;
    EXPECT_EQ(ran.output, "") << message;
    EXPECT_THAT(ran.diagnostics, AllOf(StartsWith(name + ": "), SizeIs(Lt(1000U)))) << message;
    EXPECT_EQ(ran.diagnostics.find('\n'), ran.diagnostics.size() - 1) << "one line";
    const std::size_t expected = ran.diagnostics.find("expected ");
    EXPECT_NE(ran.diagnostics.find("; found ", expected), std::string::npos) << ran.diagnostics;
    EXPECT_THAT(ran.diagnostics, HasSubstr(message));
  }

  void expectRefused(const std::string& text, const std::string& message) const {
    file("case.json", text);
    expectRefusedFile("case.json", message);
  }
};

TEST_F(MalformedInputTest, Noise) {
  std::mt19937_64 random(50);
  std::string bytes(longest, '\0');
  for (std::size_t i = 0; i + 8 <= bytes.size(); i += 8) {
    const std::uint64_t word = random();
    std::copy_n(reinterpret_cast<const char*>(&word), 8, bytes.begin() + static_cast<long>(i));
  }
  expectRefused(bytes, "line 1, column 1: expected an object");
  expectRefused("{\"result\": {\"goal\": {\"id\": \"" + bytes, "/result/goal/id: line 1, column ");
  expectRefused(std::string(longest, ' '),
                "line 1, column " + std::to_string(longest + 1) + ": expected an object");
  expectRefused(std::string(longest, '\0'), "line 1, column 1: expected an object");
  expectRefused('"' + filled("x") + '"', "expected an object; found \"xxx");
}

TEST_F(MalformedInputTest, InputThatIsWrongOnlyAtItsEnd) {
  const std::string goal = R"({"result": {"goal": {"id": "g", "title": "t"}, )";
  expectRefused(goal + "\"people\": [" +
                    filled(R"({"personRef": "p", "displayName": "Ada", "why": {"kind": )"
                           R"("connection", "hopCount": 2}, "evidenceIDs": ["ev1"]}, )") +
                    "{\"personRef\": 1}]}}",
                "/personRef: expected a string; found 1");
  expectRefused(
      goal + "\"outcomes\": [" +
          filled(R"({"id": "o", "subjectKind": "person", "value": "helped", "note": "n"}, )") +
          "{}]}}",
      ": expected the key \"id\"; found none");
  expectRefused(goal + "\"coverage\": {\"sources\": [" + filled("\"\",") + "1]}}}",
                "/sources/" + std::to_string(longest / 3) + ": expected a string; found 1");
  expectRefused(caseOf(nothing, ", \"steps\": [" + filled(R"({"submit": "x.note"}, )") + "{}]"),
                ": expected one of the keys press, select");
  std::string strings;
  for (int i = 0; strings.size() < longest; ++i) {
    strings += "\"a key é " + std::to_string(i) + "\": \"\", ";
  }
  expectRefused(caseOf(nothing, ", \"strings\": {" + strings + "\"a\": 1}"),
                "/strings/a: expected a string; found 1");
  expectRefused("{\"result\": {\"goal\": {\"id\": \"" + filled("\\u00e9") + "\\ud800\"",
                "/result/goal/id: line 1, column ");
  expectRefused("{\"" + filled("key "), "expected the end of the string");
  expectRefused("{\"result\": {\"goal\": {\"id\": \"" + filled("é") + "\xFF\"}}}",
                "/result/goal/id: line 1, column " + std::to_string(longest / 2 + 29) +
                    ": expected UTF-8; found the byte 0xFF");
}

TEST_F(MalformedInputTest, Nesting) {
  constexpr std::size_t deep = 100'000;
  for (const char* bracket : {"[", "{\"result\": "}) {
    for (const char* before :
         {"", "{\"result\": ", "{\"steps\": [{\"press\": ", "{\"strings\": "}) {
      expectRefused(before + repeated(bracket, deep), "expected ");
    }
  }
  expectRefused(
      caseOf(nothing, ", \"strings\": {\"a\": " + repeated("[", deep) + repeated("]", deep) + "}"),
      "/strings/a: expected a string; found an array");
}

TEST_F(MalformedInputTest, KeysGivenTwice) {
  expectRefused(caseOf(nothing, ", \"result\": " + nothing),
                "case.json: /result: expected each key once; found \"result\" again");
  expectRefused(R"({"result": {"goal": {"id": "a", "id": "a"}}})",
                "case.json: /result/goal/id: expected each key once; found \"id\" again");
  expectRefused(caseOf(nothing, R"(, "strings": {"a": "", "b": "", "a": ""})"),
                "case.json: /strings/a: expected each key once; found \"a\" again");
  expectRefused(caseOf(nothing, ", \"strings\": {" + filled("\"a\": \"\", ") + "\"b\": \"\"}"),
                "case.json: /strings/a: expected each key once; found \"a\" again");
}

TEST_F(MalformedInputTest, AFileThatMayNotBeRead) {
  file("closed.json", withSteps(nothing, ""));
  namespace fs = std::filesystem;
  fs::permissions(folder.path(), fs::perms(0777));
  fs::permissions(folder.file("closed.json"), fs::perms(0000));
  Invocation invocation{{"closed.json"}};
  invocation.folder = folder.path().string();
  invocation.rights = Rights::ofNobody;  // root may read every file
  const Ending ending = Process(vemraInspect, invocation).wait();
  EXPECT_EQ(ending.exitCode, 2);
  EXPECT_EQ(ending.output, "");
  EXPECT_EQ(ending.diagnostics,
            "closed.json: expected a file that can be read; found an error: Permission denied\n");
}

}  // namespace
}  // namespace vemra::inspect
