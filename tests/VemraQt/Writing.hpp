#pragma once

#include "tests/VemraQt/WindowHost.hpp"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QLineEdit>
#include <QRect>

/// \file
/// What is written in a picture, told from its pixels alone.
///
/// With a font that is not smoothed each pixel of a text has exactly the colour it is written in,
/// so that the pixels of a text can be counted and their colour be compared with what is around.

namespace vemra::qttest {

/// The font of the tests, not smoothed.
QFont hardEdgedFont();

/// The note of the first person's opened editor with that text, at that text scale and without the
/// focus.
QLineEdit& noteWith(WindowHost& host, const QString& text, double scale);

/// A text in a picture.
struct Writing {
  QColor ink;
  double contrast = 0;  ///< of the ink with the least different colour that surrounds it
  QRect place;          ///< around all of its pixels
  int pixels = 0;
};

/// What stands out most within `inside`: the colour that differs most from that of its corner.
Writing writingIn(const QImage& picture, const QRect& inside);

/// How many pixels of `after` differ from those of `before` with a contrast of at least `ratio`.
int changed(const QImage& before, const QImage& after, double ratio);

}  // namespace vemra::qttest
