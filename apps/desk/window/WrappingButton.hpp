#pragma once

#include <QPushButton>

namespace vemra::desk {

/// A push button whose title stands on several lines where the button has no room for one line.
/// Qt's own button cuts such a title at both ends.
class WrappingButton : public QPushButton {
  Q_OBJECT

 public:
  /// - Parameter air: added to the size that the style gives a button.
  explicit WrappingButton(const QString& title, QSize air = {0, 0}, QWidget* parent = nullptr);

  /// The size with the title on one line.
  QSize sizeHint() const override;
  /// As wide as the widest word.
  QSize minimumSizeHint() const override;
  int heightForWidth(int width) const override;

 protected:
  /// Breaks the title into lines for the present width.
  void initStyleOption(QStyleOptionButton* option) const override;

 private:
  int roomBesideTitle() const;

  QSize air_;
  mutable bool isMeasured_ = false;  ///< the style measures the button with its title on one line
};

}  // namespace vemra::desk
