#include "apps/documents/DocumentError.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "apps/inspect/Case.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/documents/LongResult.hpp"
#include "tests/apps/inspect/CaseText.hpp"

#include <string>

#include <gtest/gtest.h>

namespace vemra::inspect {
namespace {

/// A case that another version recorded, its result behind that.
std::string recordedCase(const std::string& result) {
  return R"({"recorded": {"program": "vemra-desk", "version": "0.0.1", "texts": "plain"},
"strings": {"Refer\u00EAncia": "x"}, "result": )" +
         result + R"(, "steps": [{"pressAll": 1}]})";
}

template <class Read>
std::string messageOf(const Read& read) {
  try {
    read();
  } catch (const documents::DocumentError& error) {
    return error.what();
  }
  return "no error";
}

TEST(LongCaseTest, AFileIsReadAsItsText) {
  const TemporaryFolder folder;
  const std::string text = caseOf(documents::longResult(), R"(, "steps": [{"press": "x"}])");
  const std::string path = folder.write("long.json", text);
  const Case ofFile = readCaseFile(path, {});
  const Case ofText = readCase(text, path, {});
  EXPECT_EQ(ofFile.result.people.size(), 85'001U);
  EXPECT_EQ(ofFile.steps.size(), 1U);
  EXPECT_TRUE(documents::writeResult(ofFile.result) == documents::writeResult(ofText.result));
}

TEST(LongCaseTest, AFaultNamesTheVersionThatWasReadBeforeIt) {
  const TemporaryFolder folder;
  for (const std::string& result : {documents::longResultWithFault(), documents::longResult()}) {
    const std::string text = recordedCase(result);
    const std::string path = folder.write("long.json", text);
    const std::string message = messageOf([&] { readCase(text, path, {}); });
    EXPECT_NE(message.find("; recorded by vemra-desk 0.0.1, this is version "), std::string::npos)
        << message;
    EXPECT_EQ(messageOf([&] { readCaseFile(path, {}); }), message);
  }
}

}  // namespace
}  // namespace vemra::inspect
