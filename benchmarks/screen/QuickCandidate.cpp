#include "benchmarks/screen/QuickCandidate.hpp"

#include "benchmarks/frames/FrameClock.hpp"
#include "benchmarks/screen/PeerParts.hpp"
#include "benchmarks/screen/PeopleModel.hpp"

#include <optional>

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlPropertyMap>
#include <QQuickItem>
#include <QQuickView>

namespace vemra::bench {

namespace {

/// The library's fonts and colours, for QML.
class QuickLooks final : public QQmlPropertyMap {
 public:
  QuickLooks() {
    const auto font = [](ui::Font wanted) { return QVariant(theme().font(wanted)); };
    insert("title", font(ui::Font::title2.weight(ui::FontWeight::semibold)));
    insert("headline", font(ui::Font::headline));
    insert("name", font(ui::Font::body.weight(ui::FontWeight::medium)));
    insert("body", font(ui::Font::body));
    insert("subheadline", font(ui::Font::subheadline));
    insert("caption", font(ui::Font::caption));
    insert("caption2", font(ui::Font::caption2));
    insert("ink", theme().text(ui::ForegroundStyle::primary));
    insert("secondary", theme().text(ui::ForegroundStyle::secondary));
    insert("tertiary", theme().text(ui::ForegroundStyle::tertiary));
    insert("link", theme().link());
    insert("outline", theme().outline());
    insert("page", theme().background());
    const QColor button = theme().palette().color(QPalette::Button);
    insert("buttonTop", button.lighter(104));
    insert("buttonBottom", button.darker(104));
  }
};

QUrl page(const char* name) {
  return QUrl(QStringLiteral("qrc:/VemraBench/quick/") + QLatin1String(name));
}

/// Objects that a program makes once for all its windows: compiled components and imports are kept.
struct QuickProgram {
  QuickProgram() { engine.rootContext()->setContextProperty("looks", &looks); }

  QuickLooks looks;
  QQmlEngine engine;
};

class QuickCandidate final : public Candidate {
 public:
  explicit QuickCandidate(QuickPage page) : page_(page) {}

  void showEmptyWindow() override {
    empty_ = makeView(nullptr, "EmptyPage.qml");
    empty_->show();
  }
  void hideEmptyWindow() override { empty_.reset(); }

  void show(const GoalResultSnapshotV1& snapshot) override {
    model_ = std::make_unique<PeopleModel>(snapshot);
    view_ =
        makeView(model_.get(), page_ == QuickPage::listView ? "ListPage.qml" : "RepeaterPage.qml");
    view_->show();
    view_->requestActivate();
  }

  void close() override {
    view_.reset();
    model_.reset();
  }

  void update(const GoalResultSnapshotV1& snapshot) override { model_->update(snapshot); }
  void openEditor(std::size_t person) override { press(person, "openEditor"); }
  void closeEditor(std::size_t person) override { press(person, "closeEditor"); }
  void focusNote(std::size_t person) override { press(person, "focusNote"); }
  void scrollToEnd() override { QMetaObject::invokeMethod(view_->rootObject(), "scrollToEnd"); }
  void scrollToStart() override { QMetaObject::invokeMethod(view_->rootObject(), "scrollToStart"); }
  void repaint() override { view_->update(); }
  QObject* keyReceiver() override { return view_.get(); }
  /// Like a wheel handler: Qt Quick's own response to a wheel is an animation, whose first frame
  /// comes one timer tick later and moves only a little.
  void turnWheel() override { QMetaObject::invokeMethod(view_->rootObject(), "turnWheel"); }
  QWindow* window() override { return view_.get(); }

 private:
  std::unique_ptr<QQuickView> makeView(PeopleModel* model, const char* name) {
    if (!program_) program_.emplace();
    auto view = std::make_unique<QQuickView>(&program_->engine, nullptr);
    auto* clock = static_cast<FrameClock*>(QCoreApplication::instance());
    QObject::connect(
        view.get(), &QQuickWindow::afterRendering, clock, [clock] { clock->notePaint(); },
        Qt::DirectConnection);
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    view->setColor(theme().background());
    view->resize(windowSize);
    if (model != nullptr) {
      view->setInitialProperties({{"people", QVariant::fromValue<QObject*>(model)}});
    }
    view->setSource(page(name));
    for (const QQmlError& error : view->errors()) qFatal("%s", qPrintable(error.toString()));
    return view;
  }

  void press(std::size_t person, const char* method) {
    QMetaObject::invokeMethod(view_->rootObject(), method,
                              Q_ARG(QVariant, static_cast<int>(person)));
  }

  QuickPage page_;
  std::optional<QuickProgram> program_;
  std::unique_ptr<PeopleModel> model_;
  std::unique_ptr<QQuickView> empty_;
  std::unique_ptr<QQuickView> view_;
};

}  // namespace

std::unique_ptr<Candidate> makeQuickCandidate(QuickPage page) {
  return std::make_unique<QuickCandidate>(page);
}

}  // namespace vemra::bench
