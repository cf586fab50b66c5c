#include "apps/desk/window/ImportJob.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/window/Becomes.hpp"

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::HasSubstr;

class ImportJobTest : public ::testing::Test {
 protected:
  ~ImportJobTest() override {
    job.reset();
    engine->finish();
  }

  QString document(const std::string& name, const GetGoalSnapshotResponse& result) const {
    return QString::fromStdString(folder.write(name, documents::writeResult(result)));
  }
  QStringList documents(int count) const {
    QStringList files;
    for (int i = 0; i < count; ++i) {
      const std::string id = "g" + std::to_string(i);
      files.append(document(id + ".json", goal(id, "Goal " + id)));
    }
    return files;
  }
  void start(const QStringList& files) {
    job = std::make_unique<ImportJob>(engine, files);
    QObject::connect(job.get(), &ImportJob::progressed,
                     [this](int count) { progress.push_back(count); });
    QObject::connect(job.get(), &ImportJob::cancelled, [this] { ending += "cancelled"; });
    QObject::connect(job.get(), &ImportJob::failed,
                     [this](const QString& reason) { ending += "failed " + reason.toStdString(); });
    QObject::connect(job.get(), &ImportJob::imported, [this](const QStringList& remarks) {
      ending += "imported " + remarks.join("|").toStdString();
    });
  }
  bool ends() const {
    return becomes([&] { return !ending.empty(); });
  }
  std::size_t goals() const { return GoalStore::open(file).goals().size(); }

  TemporaryFolder folder;
  std::string file = folder.file("goals.sqlite");
  std::shared_ptr<StoreEngine> engine = std::make_shared<StoreEngine>(file);
  std::unique_ptr<ImportJob> job;
  std::vector<int> progress;
  std::string ending;
};

TEST_F(ImportJobTest, ImportsEveryDocumentAndCountsThem) {
  start(documents(5));
  ASSERT_TRUE(ends());
  EXPECT_EQ(ending, "imported ");
  EXPECT_THAT(progress, ::testing::ElementsAre(1, 2, 3, 4, 5));
  EXPECT_EQ(goals(), 5u);
}

TEST_F(ImportJobTest, ADocumentThatCannotBeReadIsNamedAndNothingIsImported) {
  QStringList files = documents(3);
  files.insert(1, QString::fromStdString(folder.write("bad.json", "{\"goal\": 1}")));
  start(files);
  ASSERT_TRUE(ends());
  EXPECT_THAT(ending, HasSubstr("failed " + folder.file("bad.json") + ": /goal: expected"));
  EXPECT_EQ(goals(), 0u);
}

TEST_F(ImportJobTest, ACancelledJobImportsNothing) {
  start(documents(50));
  job->cancel();
  ASSERT_TRUE(ends());
  EXPECT_EQ(ending, "cancelled");
  EXPECT_EQ(goals(), 0u);
}

TEST_F(ImportJobTest, AnOutcomeRecordedWithOtherContentIsReported) {
  GoalStore::open(file).import({goal("g", "t", {outcome("o1", "p1", GoalOutcomeValue::helped)})});
  start({document("b.json", goal("g", "t", {outcome("o1", "p1", GoalOutcomeValue::notAFit)}))});
  ASSERT_TRUE(ends());
  EXPECT_EQ(ending, "imported " + folder.file("b.json") +
                        ": /outcomes/0: the outcome \"o1\" is recorded with another content, which "
                        "stays");
}

TEST_F(ImportJobTest, AJobThatIsDestroyedWhileItReadsImportsNothing) {
  start(documents(50));
  job.reset();
  becomes([n = 0]() mutable { return ++n > 20; });
  EXPECT_EQ(ending, "");
  EXPECT_EQ(goals(), 0u);
}

}  // namespace
}  // namespace vemra::desk
