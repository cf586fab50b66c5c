#include "VemraPlatform/text/UTF8.hpp"
#include "apps/documents/ResultReader.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/documents/RandomResult.hpp"
#include "tests/apps/documents/SampleResult.hpp"

#include <algorithm>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vemra::documents {
namespace {

/// A document after one to three small random changes.
std::string mutated(std::string text, RandomResult& random) {
  static const std::string_view pieces[] = {"{",
                                            "}",
                                            "[",
                                            "]",
                                            ",",
                                            ":",
                                            "\"",
                                            "\\",
                                            "\\u",
                                            "\\uD800",
                                            "null",
                                            "true",
                                            "-",
                                            "0",
                                            "1.0",
                                            "1e2",
                                            "9223372036854775808",
                                            "\xFF",
                                            "\xC3",
                                            "\xEF\xBB\xBF",
                                            "\"id\"",
                                            "\"kind\": \"x\"",
                                            "[[[[[[[[[[[[",
                                            "\n",
                                            " ",
                                            "é"};
  for (std::size_t accidents = 1 + random.below(3); accidents > 0 && !text.empty(); --accidents) {
    const std::size_t at = random.below(text.size());
    const std::size_t length = std::min(1 + random.below(20), text.size() - at);
    switch (random.below(6)) {
      case 0:
        text[at] = static_cast<char>(random.below(256));
        break;
      case 1:
        text.erase(at, length);
        break;
      case 2:
        text.insert(at, pieces[random.below(std::size(pieces))]);
        break;
      case 3:
        text.replace(at, length, pieces[random.below(std::size(pieces))]);
        break;
      case 4:
        text.insert(random.below(text.size()), text.substr(at, length));
        break;
      default:
        text.resize(at);
    }
  }
  return text;
}

TEST(MutationTest, EveryMutationIsReadOrRefusedWithAPlace) {
  RandomResult random(1);
  std::size_t read = 0;
  for (int i = 0; i < 20'000; ++i) {
    const std::string text = mutated(sampleResult, random);
    try {
      const auto result = readResultText(text, "case.json");
      ++read;
      // A document that is read is JSON for another reader too, and no part of it is lost.
      ASSERT_TRUE(nlohmann::json::accept(text)) << text;
      ASSERT_EQ(readResultText(writeResult(result), "again"), result) << text;
    } catch (const DocumentError& error) {
      const std::string_view message = error.what();
      ASSERT_TRUE(message.starts_with("case.json: ")) << message << "\n" << text;
      ASSERT_NE(message.find("expected "), std::string_view::npos) << message;
      ASSERT_NE(message.find("; found "), std::string_view::npos) << message;
      ASSERT_EQ(message.find('\n'), std::string_view::npos) << message;
      ASSERT_LT(message.size(), 1000U);
      ASSERT_TRUE(text::isWellFormed(message)) << message;
    }
  }
  // Both results occur: a change inside a title or between tokens may do no harm.
  EXPECT_GT(read, 200U);
  EXPECT_LT(read, 10'000U);
}

}  // namespace
}  // namespace vemra::documents
