#pragma once

#include <QObject>
#include <QPalette>
#include <QString>

namespace vemra::desk {

/// The colours that the user wants: those of the system, or always light or dark ones.
enum class Colours { system, light, dark };

/// The colours of the application, remembered for its next start.
///
/// A style with colours of its own (Adwaita) cannot draw in every palette. While the user has chosen
/// a colour scheme that the style cannot draw in, Qt's style Fusion draws the program.
///
/// Main thread only.
class ColourChoice : public QObject {
 public:
  /// Sets the remembered colours.
  explicit ColourChoice(QObject* parent = nullptr);

  Colours colours() const { return colours_; }
  /// Sets the colours of every window now, and remembers them.
  void choose(Colours colours);

 private:
  void apply();

  Colours colours_ = Colours::system;
  QString styleOfSystem_;
};

}  // namespace vemra::desk
