#include "benchmarks/screen/VemraCandidate.hpp"

#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "benchmarks/data/SampleResult.hpp"

#include <QAbstractButton>
#include <QScrollBar>

namespace vemra::bench {

namespace {

class VemraCandidate final : public Candidate {
 public:
  void showEmptyWindow() override {
    empty_ = std::make_unique<QWidget>();
    empty_->resize(windowSize);
    empty_->show();
  }
  void hideEmptyWindow() override { empty_.reset(); }

  void show(const GoalResultSnapshotV1& snapshot) override {
    view_ = std::make_unique<qt::ViewWidget>();
    view_->setEnvironment(ui::Environment());
    view_->resize(windowSize);
    update(snapshot);
    view_->show();
    view_->activateWindow();
  }

  void close() override { view_.reset(); }

  void update(const GoalResultSnapshotV1& snapshot) override {
    view_->setRoot(GoalResultView(
        snapshot, [](const std::string&) {}, [](const std::string&) {},
        [](const GoalPathCandidateDTO&) {}, [](const GoalOutcomeRecordingInput&) {}));
  }

  void openEditor(std::size_t person) override { press(person, "outcome.start"); }
  void closeEditor(std::size_t person) override { press(person, "outcome.cancel"); }
  void focusNote(std::size_t person) override { control(person, "outcome.note")->setFocus(); }

  void scrollToEnd() override {
    view_->verticalScrollBar()->setValue(view_->verticalScrollBar()->maximum());
  }
  void scrollToStart() override { view_->verticalScrollBar()->setValue(0); }
  void repaint() override { view_->viewport()->update(); }

  QObject* keyReceiver() override { return view_->focusWidget(); }
  void turnWheel() override { turnWheelOver(*view_->viewport()); }
  QWindow* window() override { return view_->windowHandle(); }

 private:
  QWidget* control(std::size_t person, const std::string& name) const {
    const QString identifier = QString::fromStdString(identifierOf(person, name));
    for (QWidget* widget : view_->viewport()->findChildren<QWidget*>(identifier)) {
      if (widget->isVisible()) return widget;  // unused ones keep their last name
    }
    qFatal("there is no %s", qPrintable(identifier));
  }
  void press(std::size_t person, const std::string& name) const {
    qobject_cast<QAbstractButton*>(control(person, name))->click();
  }

  std::unique_ptr<QWidget> empty_;
  std::unique_ptr<qt::ViewWidget> view_;
};

}  // namespace

std::unique_ptr<Candidate> makeVemraCandidate() {
  return std::make_unique<VemraCandidate>();
}

}  // namespace vemra::bench
