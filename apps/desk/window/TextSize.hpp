#pragma once

#include <QFont>
#include <QObject>

namespace vemra::desk {

/// The size of all texts of the application: the user's usual font, larger or smaller in steps.
/// The step is remembered for the next start.
class TextSize : public QObject {
 public:
  /// Takes the application's present font as the usual one, and sets the remembered size.
  explicit TextSize(QObject* parent = nullptr);
  /// Gives the application its usual font back.
  ~TextSize() override;

  void enlarge() { setStep(step_ + 1); }
  void reduce() { setStep(step_ - 1); }
  void reset() { setStep(0); }
  /// The present size in percent of the usual one.
  int percent() const;

 private:
  void setStep(int step);
  void apply();

  QFont usual_;
  int step_ = 0;
};

}  // namespace vemra::desk
