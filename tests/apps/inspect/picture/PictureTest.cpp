#include "tests/apps/inspect/CaseText.hpp"
#include "tests/apps/inspect/Ran.hpp"

namespace vemra::inspect {
namespace {

/// The width and height in a PNG file's IHDR chunk; 0 for another file.
std::pair<unsigned, unsigned> pictureSize(const std::string& png) {
  if (png.size() < 24 || !png.starts_with("\x89PNG\r\n\x1A\n")) return {0, 0};
  const auto number = [&](std::size_t at) {
    unsigned value = 0;
    for (std::size_t i = at; i < at + 4; ++i)
      value = value << 8 | static_cast<unsigned char>(png[i]);
    return value;
  };
  return {number(16), number(20)};
}

class PictureTest : public ProgramTest {
 protected:
  /// The toolkit needs a private folder of the user, as in a login session.
  Ran draw(const std::string& arguments, const std::string& text,
           const std::string& variables = "") const {
    return run(
        arguments, text,
        variables + " LC_ALL=en_US.UTF-8 TZ=UTC XDG_RUNTIME_DIR='" + folder.path().string() + "'");
  }
};

const std::string openEditor = R"({"press": "vemra.goal.path.outcome.start"})";

TEST_F(PictureTest, DrawsTheScreenBesideTheReport) {
  const Ran plain = run("-", withSteps(oneOfEach, openEditor));
  const Ran drawn = draw("- --png out.png", withSteps(oneOfEach, openEditor));
  EXPECT_EQ(drawn.exitCode, 0) << drawn.diagnostics;
  EXPECT_EQ(drawn.diagnostics, "");
  EXPECT_EQ(drawn.output, plain.output);
  const auto [width, height] = pictureSize(content("out.png"));
  EXPECT_EQ(width, 720U);
  EXPECT_GT(height, 100U);
}

TEST_F(PictureTest, DrawsTheStateAfterTheLastStep) {
  draw("- --png closed.png", withSteps(oneOfEach, ""));
  draw("- --png open.png", withSteps(oneOfEach, openEditor));
  EXPECT_GT(pictureSize(content("open.png")).second, pictureSize(content("closed.png")).second)
      << "an open editor is higher than its button";
}

TEST_F(PictureTest, NeedsNoDisplay) {
  const Ran ran = draw("- --png out.png", withSteps(nothing, ""),
                       "-u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb");
  EXPECT_EQ(ran.exitCode, 0) << ran.diagnostics;
  EXPECT_EQ(ran.diagnostics, "");
}

TEST_F(PictureTest, DrawsNothingForAnInputThatCannotBeUsed) {
  for (const std::string& text : {std::string("{"), caseOf(nothing, R"(, "locale": "xx")"),
                                  withSteps(nothing, R"({"tap": "x"})")}) {
    EXPECT_EQ(draw("- --png out.png", text).exitCode, 2);
    EXPECT_FALSE(std::filesystem::exists(folder.file("out.png"))) << text;
  }
}

TEST_F(PictureTest, DrawsAlsoWhenAStepCouldNotBeCarriedOut) {
  const Ran ran = draw("- --png out.png", withSteps(oneOfEach, R"({"press": "x"})"));
  EXPECT_EQ(ran.exitCode, 1);
  EXPECT_EQ(ran.diagnostics, "");
  EXPECT_EQ(pictureSize(content("out.png")).first, 720U);
}

TEST_F(PictureTest, IsQuietWhateverTheEnvironmentLacks) {
  file("nobodys", "");
  for (const char* variables :
       {"-u XDG_RUNTIME_DIR", "XDG_RUNTIME_DIR=/missing", "XDG_RUNTIME_DIR=nobodys", "-i"}) {
    const Ran ran = run("- --png out.png", withSteps(oneOfEach, ""), variables);
    EXPECT_EQ(ran.exitCode, 0) << variables;
    EXPECT_EQ(ran.diagnostics, "") << variables;
  }
}

TEST_F(PictureTest, ReportsAPictureThatCannotBeWritten) {
  const Ran ran = draw("- --png missing/out.png", withSteps(oneOfEach, ""));
  EXPECT_EQ(ran.exitCode, 1);
  EXPECT_EQ(ran.json()["tree"]["element"], "ScrollView");
  EXPECT_EQ(ran.diagnostics, "missing/out.png: expected a file that can be written\n");
}

}  // namespace
}  // namespace vemra::inspect
