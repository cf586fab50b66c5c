#include "benchmarks/screen/WidgetsCandidate.hpp"

#include "benchmarks/data/SampleResult.hpp"
#include "benchmarks/screen/PeerData.hpp"
#include "benchmarks/screen/PeerHost.hpp"
#include "benchmarks/screen/PeerParts.hpp"

#include <optional>
#include <vector>

#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace vemra::bench {

namespace {

constexpr int betweenElements = 4;
constexpr int betweenRows = 10;
constexpr int rowPadding = 4;  // above and below a person, besides

class ScrollAreaCandidate : public Candidate {
 public:
  void showEmptyWindow() override {
    empty_ = std::make_unique<QWidget>();
    empty_->resize(windowSize);
    empty_->show();
  }
  void hideEmptyWindow() override { empty_.reset(); }

  void show(const GoalResultSnapshotV1& snapshot) override {
    area_ = std::make_unique<QScrollArea>();
    area_->setFrameShape(QFrame::NoFrame);
    area_->setWidgetResizable(true);
    area_->viewport()->setBackgroundRole(QPalette::Base);
    area_->resize(windowSize);
    fill(snapshot);
    area_->show();
    area_->activateWindow();
  }
  void close() override {
    area_.reset();
    forget();
  }

  void scrollToEnd() override {
    area_->verticalScrollBar()->setValue(area_->verticalScrollBar()->maximum());
  }
  void scrollToStart() override { area_->verticalScrollBar()->setValue(0); }
  void repaint() override { (area_->widget() ? area_->widget() : area_->viewport())->update(); }
  QObject* keyReceiver() override { return area_->focusWidget(); }
  void turnWheel() override { turnWheelOver(*area_->viewport()); }
  QWindow* window() override { return area_->windowHandle(); }

 protected:
  virtual void fill(const GoalResultSnapshotV1& snapshot) = 0;
  /// Releases the data that `fill` kept besides the widgets.
  virtual void forget() {}

  std::unique_ptr<QWidget> empty_;
  std::unique_ptr<QScrollArea> area_;
};

class EmptyScrollArea final : public ScrollAreaCandidate {
 public:
  void update(const GoalResultSnapshotV1&) override {}
  void openEditor(std::size_t) override {}
  void closeEditor(std::size_t) override {}
  void focusNote(std::size_t) override {}

 protected:
  void fill(const GoalResultSnapshotV1&) override {}
};

class WidgetsCandidate final : public ScrollAreaCandidate {
 public:
  explicit WidgetsCandidate(WidgetArrangement arrangement) : arrangement_(arrangement) {}

  void update(const GoalResultSnapshotV1& snapshot) override {
    if (data_->update(snapshot) == PeerData::Change::people) {
      fill(snapshot);
      return;
    }
    for (std::size_t person = 0; person < rows_.size(); ++person) {
      const GoalOutcomeDTO* outcome = data_->outcome(person);
      const std::string_view id = outcome ? std::string_view(outcome->id) : std::string_view();
      if (rows_[person].shownOutcome == id || editorOf(person)) continue;
      replaceControl(person, resting(person));
    }
  }

  void openEditor(std::size_t person) override {
    // Like a press: with the button's signal.
    static_cast<QPushButton*>(rows_[person].control)->click();
  }
  void closeEditor(std::size_t person) override { editorOf(person)->cancel().click(); }
  void focusNote(std::size_t person) override { editorOf(person)->note().setFocus(); }

 protected:
  void fill(const GoalResultSnapshotV1& snapshot) override {
    data_.emplace(snapshot);
    rows_.clear();
    rows_.reserve(data_->size());
    page_ = new QWidget;
    page_->setBackgroundRole(QPalette::Base);
    page_->setPalette(theme().paletteForFrames());
    column_ = new QVBoxLayout(page_);
    column_->setContentsMargins(24, 24, 24, 24);
    const bool inRows = arrangement_ == WidgetArrangement::rows;
    column_->setSpacing(inRows ? betweenRows : betweenElements);
    addText(*column_, toQString(snapshot.goal().title),
            ui::Font::title2.weight(ui::FontWeight::semibold));
    widenGap(20);
    addText(*column_, QStringLiteral("People worth considering"), ui::Font::headline);
    if (!inRows) widenGap(betweenRows + rowPadding);
    for (std::size_t person = 0; person < data_->size(); ++person) addPerson(person);
    widenGap(inRows ? 20 + rowPadding : 20 + 2 * rowPadding);
    addText(*column_, QStringLiteral("Supported path"), ui::Font::headline);
    widenGap(betweenRows);
    auto* path = new QVBoxLayout;
    path->setSpacing(betweenElements);
    column_->addLayout(path);
    path->addWidget(
        makeText(data_->path(), ui::Font::subheadline, ui::ForegroundStyle::primary, page_));
    auto* focus = new SmallButton(QStringLiteral("See in Starfold"),
                                  QStringLiteral("vemra.goal.path.see-in-starfold"), page_);
    QObject::connect(focus, &QPushButton::clicked, page_, [this] { ++host_.focusedPaths; });
    path->addWidget(focus);
    auto* record = new SmallButton(QStringLiteral("Record outcome"),
                                   QStringLiteral("vemra.goal.path.outcome.start"), page_);
    QObject::connect(record, &QPushButton::clicked, page_, [this] { ++host_.recordedOutcomes; });
    path->addWidget(record);
    widenGap(20);
    column_->addWidget(
        makeText(data_->footer(), ui::Font::caption, ui::ForegroundStyle::secondary, page_));
    column_->addStretch();
    area_->setWidget(page_);
  }

  void forget() override {
    rows_.clear();
    data_.reset();
  }

 private:
  struct Row {
    QBoxLayout* layout = nullptr;
    QWidget* parent = nullptr;
    QWidget* control = nullptr;  ///< the button, the summary or the editor
    std::string shownOutcome;    ///< its id; "" for none
  };

  void addText(QBoxLayout& layout, const QString& text, ui::Font font,
               ui::ForegroundStyle style = ui::ForegroundStyle::primary) {
    layout.addWidget(makeText(text, font, style, page_));
  }

  /// Makes the gap that follows this wide; the column's own spacing is in it already.
  void widenGap(int gap) {
    if (gap > column_->spacing()) column_->addSpacing(gap - column_->spacing());
  }

  void addPerson(std::size_t person) {
    Row row{column_, page_, nullptr, {}};
    if (arrangement_ == WidgetArrangement::rows) {
      row.parent = new QWidget(page_);
      row.layout = new QVBoxLayout(row.parent);
      row.layout->setContentsMargins(0, rowPadding, 0, rowPadding);
      row.layout->setSpacing(betweenElements);
      column_->addWidget(row.parent);
    } else if (person > 0) {
      widenGap(betweenRows + 2 * rowPadding);
    }
    auto* name = new NameButton(data_->name(person), row.parent);
    QObject::connect(name, &QPushButton::clicked, page_, [this] { ++host_.openedPeople; });
    row.layout->addWidget(name);
    row.layout->addWidget(makeText(data_->why(person), ui::Font::subheadline,
                                   ui::ForegroundStyle::secondary, row.parent));
    if (data_->hasSource(person)) {
      auto* source =
          new SmallButton(QStringLiteral("Show source"),
                          QString::fromStdString(identifierOf(person, "show-source")), row.parent);
      QObject::connect(source, &QPushButton::clicked, page_, [this] { ++host_.shownSources; });
      row.layout->addWidget(source);
    }
    rows_.push_back(row);
    rows_.back().control = resting(person);
    row.layout->addWidget(rows_.back().control);
  }

  /// The widget that is shown while no editor is open.
  QWidget* resting(std::size_t person) {
    const GoalOutcomeDTO* outcome = data_->outcome(person);
    rows_[person].shownOutcome = outcome ? outcome->id : std::string();
    if (outcome) {
      auto* summary = new OutcomeSummary(
          *outcome, QString::fromStdString(identifierPrefixOf(person)), rows_[person].parent);
      QObject::connect(&summary->correct(), &QPushButton::clicked, page_,
                       [this, person] { edit(person); });
      return summary;
    }
    auto* start = new SmallButton(QStringLiteral("Record outcome"),
                                  QString::fromStdString(identifierOf(person, "outcome.start")),
                                  rows_[person].parent);
    QObject::connect(start, &QPushButton::clicked, page_, [this, person] { edit(person); });
    return start;
  }

  void edit(std::size_t person) {
    auto* editor =
        new OutcomeEditor(QString::fromStdString(identifierPrefixOf(person)), rows_[person].parent);
    QObject::connect(&editor->cancel(), &QPushButton::clicked, page_,
                     [this, person] { replaceControl(person, resting(person)); });
    QObject::connect(&editor->save(), &QPushButton::clicked, page_, [this, person] {
      ++host_.recordedOutcomes;
      replaceControl(person, resting(person));
    });
    replaceControl(person, editor);
    editor->setFocus();
  }

  void replaceControl(std::size_t person, QWidget* control) {
    Row& row = rows_[person];
    delete row.layout->replaceWidget(row.control, control, Qt::FindDirectChildrenOnly);
    row.control->hide();
    row.control->deleteLater();
    row.control = control;
    control->show();
  }

  /// The open editor of a person, or nullptr.
  OutcomeEditor* editorOf(std::size_t person) {
    return qobject_cast<OutcomeEditor*>(rows_[person].control);
  }

  WidgetArrangement arrangement_;
  PeerHost host_;
  std::optional<PeerData> data_;
  QWidget* page_ = nullptr;
  QBoxLayout* column_ = nullptr;
  std::vector<Row> rows_;
};

}  // namespace

std::unique_ptr<Candidate> makeWidgetsCandidate(WidgetArrangement arrangement) {
  return std::make_unique<WidgetsCandidate>(arrangement);
}

std::unique_ptr<Candidate> makeEmptyScrollArea() {
  return std::make_unique<EmptyScrollArea>();
}

}  // namespace vemra::bench
