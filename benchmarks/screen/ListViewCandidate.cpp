#include "benchmarks/screen/ListViewCandidate.hpp"

#include "benchmarks/screen/PeerHost.hpp"
#include "benchmarks/screen/PeerParts.hpp"
#include "benchmarks/screen/RowDelegate.hpp"

#include <QListView>
#include <QScrollBar>

namespace vemra::bench {

namespace {

class ListViewCandidate final : public Candidate {
 public:
  void showEmptyWindow() override {
    empty_ = std::make_unique<QWidget>();
    empty_->resize(windowSize);
    empty_->show();
  }
  void hideEmptyWindow() override { empty_.reset(); }

  void show(const GoalResultSnapshotV1& snapshot) override {
    model_ = std::make_unique<PageModel>(snapshot);
    list_ = std::make_unique<QListView>();
    list_->setFrameShape(QFrame::NoFrame);
    list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    list_->verticalScrollBar()->setSingleStep(20);  // as the others; the view's own is a row's
    list_->setSelectionMode(QAbstractItemView::NoSelection);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    delegate_ = new RowDelegate(*model_, list_.get());
    list_->setItemDelegate(delegate_);
    list_->setModel(model_.get());
    list_->resize(windowSize);
    list_->show();
    list_->activateWindow();
  }

  void close() override {
    list_.reset();
    model_.reset();
  }

  void update(const GoalResultSnapshotV1& snapshot) override {
    if (model_->update(snapshot) == PeerData::Change::heights) {
      Q_EMIT delegate_->sizeHintChanged(model_->indexOf(0));  // lays out all rows again
    }
  }

  void openEditor(std::size_t person) override {
    const QModelIndex index = model_->indexOf(person);
    model_->setEditing(person);
    Q_EMIT delegate_->sizeHintChanged(index);
    list_->openPersistentEditor(index);
    editor_ = static_cast<OutcomeEditor*>(list_->indexWidget(index));
    QObject::connect(&editor_->cancel(), &QPushButton::clicked, list_.get(),
                     [this, index] { close(index); });
    QObject::connect(&editor_->save(), &QPushButton::clicked, list_.get(), [this, index] {
      ++host_.recordedOutcomes;
      close(index);
    });
    editor_->setFocus();
  }
  void closeEditor(std::size_t) override { editor_->cancel().click(); }
  void focusNote(std::size_t) override { editor_->note().setFocus(); }

  void scrollToEnd() override { list_->scrollToBottom(); }
  void scrollToStart() override { list_->scrollToTop(); }
  void repaint() override { list_->viewport()->update(); }
  QObject* keyReceiver() override { return list_->focusWidget(); }
  void turnWheel() override { turnWheelOver(*list_->viewport()); }
  QWindow* window() override { return list_->windowHandle(); }

 private:
  void close(const QModelIndex& index) {
    model_->setEditing(std::nullopt);
    list_->closePersistentEditor(index);
    editor_ = nullptr;
    Q_EMIT delegate_->sizeHintChanged(index);
  }

  PeerHost host_;
  std::unique_ptr<QWidget> empty_;
  std::unique_ptr<PageModel> model_;
  std::unique_ptr<QListView> list_;
  RowDelegate* delegate_ = nullptr;
  OutcomeEditor* editor_ = nullptr;
};

}  // namespace

std::unique_ptr<Candidate> makeListViewCandidate() {
  return std::make_unique<ListViewCandidate>();
}

}  // namespace vemra::bench
