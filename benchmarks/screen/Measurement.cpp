#include "benchmarks/screen/Measurement.hpp"

#include "benchmarks/screen/ResidentMemory.hpp"

#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <vector>

#include <QKeyEvent>
#include <QPixmap>
#include <QScreen>
#include <QWindow>

namespace vemra::bench {

namespace {

constexpr std::size_t mostRepetitions = 9;
constexpr std::size_t profiledRepetitions = 1000;
constexpr Milliseconds enough{1500};  // a slow measure is not repeated for longer
constexpr std::size_t subject = 1;    // the edited person: in view, without an outcome

double medianOf(std::vector<double> values) {
  std::ranges::sort(values);
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

/// The pixels that were flushed to the window, not a separately painted picture.
QImage pixelsOf(QWindow& window) {
  return window.screen()->grabWindow(window.winId()).toImage();
}

}  // namespace

Measurement::Measurement(FrameClock& clock, const CandidateKind& kind, SampleSize size)
    : clock_(clock), kind_(kind), result_(sampleResult(size)), snapshot_(result_) {}

void Measurement::print(const std::string& measure, double value) {
  std::cout << measure << '\t' << value << std::endl;
}

double Measurement::frameOf(const std::string& what, const std::function<void()>& action) {
  QImage frame;
  if (checks_) clock_.atFrame = [&] { frame = pixelsOf(*candidate_->window()); };
  const auto time = clock_.timeToFrame(action);
  clock_.atFrame = nullptr;
  if (!time) throw std::runtime_error(kind_.name + ": no frame within a minute: " + what);
  clock_.settle();
  if (checks_) checkWhole(what, frame);
  return time->count();
}

void Measurement::checkWhole(const std::string& what, const QImage& frame) {
  // Nothing blinks or moves by itself, so every difference was missing in the frame.
  if (pixelsOf(*candidate_->window()) == frame || !unwhole_.insert(what).second) return;
  std::cerr << kind_.name << ": a frame that was not whole: " << what << std::endl;
  if (!pictures_.empty()) {
    frame.save(QString::fromStdString(pictures_ + "/" + kind_.name + "-" + what + "-partly.png"));
  }
}

void Measurement::repeated(const std::string& measure, const std::function<void()>& action,
                           const std::function<void()>& undo) {
  if (!only_.empty() && measure != only_) return;
  const double first = frameOf(measure, action);
  keepPicture(measure);
  print(measure + ".first", first);
  std::vector<double> hot;
  Milliseconds spent{0};
  const auto most = only_.empty() ? mostRepetitions : profiledRepetitions;
  while (hot.size() < most && (spent < enough || hot.empty() || !only_.empty())) {
    const auto start = std::chrono::steady_clock::now();
    if (undo) undo();
    clock_.settle();
    hot.push_back(frameOf(measure, action));
    spent += std::chrono::steady_clock::now() - start;
  }
  print(measure + ".hot", medianOf(std::move(hot)));
}

void Measurement::coldFirstFrame() {
  print("firstFrame.first", frameOf("first frame", [this] {
          candidate_ = kind_.make();
          candidate_->show(snapshot_);
        }));
}

double Measurement::warmFrame() {
  return frameOf("warm first frame", [this] { candidate_->show(snapshot_); });
}

void Measurement::warmFirstFrames(std::size_t times) {
  std::vector<double> hot;
  Milliseconds spent{0};
  for (std::size_t i = 0; i < times && (spent < enough || i == 0); ++i) {
    candidate_->close();
    clock_.settle();
    hot.push_back(warmFrame());
    spent += Milliseconds(hot.back());
  }
  print("firstFrame.hot", medianOf(std::move(hot)));
}

void Measurement::firstFrames() {
  coldFirstFrame();
  warmFirstFrames(mostRepetitions);
}

void Measurement::times(const std::string& pictures) {
  pictures_ = pictures;
  coldFirstFrame();
  checkPixels("first frame");
  keepPicture("firstFrame");
  measureEvents();
  warmFirstFrames(mostRepetitions);
}

void Measurement::check(const std::string& pictures) {
  checks_ = true;
  times(pictures);
  if (kind_.name == libraryName && !unwhole_.empty()) {
    throw std::runtime_error(kind_.name + " was measured to frames that were not whole");
  }
}

void Measurement::repeatOne(const std::string& measure) {
  static const std::set<std::string> events{"outcome", "noted", "editor", "key",
                                            "wheel",   "end",   "floor"};
  if (!events.contains(measure)) throw std::runtime_error("there is no measure " + measure);
  only_ = measure;
  coldFirstFrame();
  measureEvents();
}

void Measurement::measureEvents() {
  const GoalResultSnapshotV1 more(withOneOutcomeMore(result_, subject));
  repeated(
      "outcome", [&] { candidate_->update(more); }, [&] { candidate_->update(snapshot_); });
  candidate_->update(snapshot_);
  const GoalResultSnapshotV1 noted(withOneOutcomeMore(result_, subject, "Met at the fair"));
  repeated(
      "noted", [&] { candidate_->update(noted); }, [&] { candidate_->update(snapshot_); });
  candidate_->update(snapshot_);
  repeated(
      "editor", [&] { candidate_->openEditor(subject); },
      [&] { candidate_->closeEditor(subject); });
  if (only_.empty() || only_ == "key") {
    if (!only_.empty()) candidate_->openEditor(subject);  // it is still open otherwise
    candidate_->focusNote(subject);
    repeated(
        "key", [this] { sendKey(); }, nullptr);
    candidate_->closeEditor(subject);
  }
  repeated(
      "wheel", [this] { candidate_->turnWheel(); }, nullptr);
  candidate_->scrollToStart();
  repeated(
      "end", [&] { candidate_->scrollToEnd(); }, [&] { candidate_->scrollToStart(); });
  candidate_->scrollToStart();
  repeated(
      "floor", [&] { candidate_->repaint(); }, nullptr);
}

void Measurement::memory() {
  candidate_ = kind_.make();
  candidate_->showEmptyWindow();
  clock_.settle();
  const Memory empty = memoryNow();
  candidate_->hideEmptyWindow();
  candidate_->show(snapshot_);
  clock_.settle();
  checkPixels("memory");
  const Memory full = memoryNow();
  print("memory.first", full.resident - empty.resident);
  print("anonymous.first", full.anonymous - empty.anonymous);
}

void Measurement::serve() {
  candidate_ = kind_.make();
  candidate_->show(snapshot_);
  clock_.settle();
  std::cout << "ready" << std::endl;
  QApplication::exec();
}

void Measurement::repeatFirstFrames() {
  coldFirstFrame();
  for (int i = 0; i < 10; ++i) {
    candidate_->close();
    clock_.settle();
    warmFrame();
  }
}

void Measurement::checkPixels(const std::string& what) {
  if (kind_.name == "empty-scroll-area") return;
  const QImage pixels = pixelsOf(*candidate_->window()).convertToFormat(QImage::Format_RGB32);
  // Texts, links, frames and gradients, from top to bottom.
  std::set<QRgb> colors;
  int inkedLines = 0;
  for (int y = 0; y < pixels.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
    const std::set<QRgb> here(line, line + pixels.width() - 20);
    if (here.size() > 3) ++inkedLines;
    colors.insert(here.begin(), here.end());
  }
  if (colors.size() < 50 || inkedLines < pixels.height() / 4) {
    throw std::runtime_error(kind_.name + ": nothing was painted: " + what);
  }
}

void Measurement::keepPicture(const std::string& name) {
  if (pictures_.empty()) return;
  const QString file = QString::fromStdString(pictures_ + "/" + kind_.name + "-" + name + ".png");
  if (!pixelsOf(*candidate_->window()).save(file)) {
    throw std::runtime_error("cannot write " + file.toStdString());
  }
}

void Measurement::sendKey() {
  QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
  QKeyEvent release(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
  QObject* receiver = candidate_->keyReceiver();
  QCoreApplication::sendEvent(receiver, &press);
  QCoreApplication::sendEvent(receiver, &release);
}

}  // namespace vemra::bench
