// Unicode's NormalizationTest.txt as an oracle: columns 1 to 3 of a row are canonically equivalent
// to each other, columns 4 and 5 to each other, and column 3 is Normalization Form D of column 1.

#include "VemraPlatform/text/Equality.hpp"
#include "tests/VemraPlatform/text/Samples.hpp"

#include <array>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using Row = std::array<std::string, 5>;

std::vector<Row> readRows() {
  std::vector<Row> rows;
  std::ifstream file(VEMRA_NORMALIZATION_ROWS);
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#' || line[0] == '@') continue;
    std::istringstream columns(line);
    Row row;
    for (std::string& text : row) {
      std::string column;
      std::getline(columns, column, ';');
      std::istringstream scalars(column);
      unsigned int scalar = 0;
      while (scalars >> std::hex >> scalar) text += utf8(char32_t{scalar});
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

class NormalizationRows : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { rows_ = new std::vector<Row>(readRows()); }
  static void TearDownTestSuite() { delete rows_; }
  static const std::vector<Row>& rows() { return *rows_; }

  static void expectSame(const std::string& a, const std::string& b) {
    EXPECT_TRUE(text::equal(a, b)) << inHex(a) << "and " << inHex(b);
    EXPECT_TRUE(text::equal(b, a)) << inHex(b) << "and " << inHex(a);
    EXPECT_EQ(text::hash(a), text::hash(b)) << inHex(a) << "and " << inHex(b);
  }

  /// Two texts must be equal exactly when their decompositions in the file are the same bytes.
  static void expectByDecomposition(const std::string& a, const std::string& decomposedA,
                                    const std::string& b, const std::string& decomposedB) {
    EXPECT_EQ(text::equal(a, b), decomposedA == decomposedB) << inHex(a) << "and " << inHex(b);
  }

 private:
  static inline std::vector<Row>* rows_ = nullptr;
};

TEST_F(NormalizationRows, AreAllRead) {
  std::ifstream file(VEMRA_NORMALIZATION_ROWS);
  std::string line, last;
  while (std::getline(file, line)) last = line;
  EXPECT_EQ(last, "# EOF");
  EXPECT_GE(rows().size(), 19074U) << "as many as Unicode 15.0 has, and later versions more";
}

TEST_F(NormalizationRows, EquivalentColumnsAreEqualAndHashEqually) {
  for (const Row& row : rows()) {
    expectSame(row[0], row[1]);
    expectSame(row[0], row[2]);
    expectSame(row[1], row[2]);
    expectSame(row[3], row[4]);
  }
}

TEST_F(NormalizationRows, StayEqualInsideOtherText) {
  for (const Row& row : rows()) {
    expectSame("person-" + row[0] + "-1", "person-" + row[2] + "-1");
    expectSame(row[1] + " and so on", row[2] + " and so on");
    expectSame("ends in " + row[0], "ends in " + row[1]);
  }
}

TEST_F(NormalizationRows, CompatibilityAloneIsNotEquality) {
  std::size_t different = 0;
  for (const Row& row : rows()) {
    expectByDecomposition(row[0], row[2], row[3], row[4]);
    if (row[2] != row[4]) ++different;
  }
  EXPECT_GT(different, 3000U);
}

TEST_F(NormalizationRows, RowsAreEqualOnlyWhenTheirDecompositionsAre) {
  std::size_t different = 0;
  for (std::size_t index = 0; index < rows().size(); ++index) {
    for (const std::size_t step : {1U, 2U, 3U, 7919U}) {
      const Row& row = rows()[index];
      const Row& other = rows()[(index + step) % rows().size()];
      expectByDecomposition(row[0], row[2], other[0], other[2]);
      expectByDecomposition(row[1], row[2], other[2], other[2]);
      expectByDecomposition("x" + row[0] + "y", row[2], "x" + other[1] + "y", other[2]);
      if (row[2] != other[2]) ++different;
    }
  }
  EXPECT_GT(different, 60000U);
}

}  // namespace
}  // namespace vemra::testing
