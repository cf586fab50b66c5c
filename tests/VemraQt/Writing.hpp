#pragma once

#include "tests/VemraQt/WindowHost.hpp"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QLineEdit>
#include <QRect>

/// \file
/// Finds the texts in a picture by its pixels alone.
///
/// With a font that is not smoothed each pixel of a text has exactly the text's colour, so the
/// pixels of a text can be counted and their colour compared with the background.

namespace vemra::qttest {

/// The font of the tests, not smoothed.
QFont hardEdgedFont();

/// The note of the first person's opened editor with that text, at that text scale and without the
/// focus.
QLineEdit& noteWith(WindowHost& host, const QString& text, double scale);

/// A text in a picture.
struct Writing {
  QColor ink;
  double contrast = 0;  ///< of the text with the most similar colour around it
  QRect place;          ///< around all of its pixels
  int pixels = 0;
};

/// The colour within `inside` that has the highest contrast with that of its corner.
Writing writingIn(const QImage& picture, const QRect& inside);

/// The number of pixels of `after` that differ from those of `before` with a contrast of at least
/// `ratio`.
int changed(const QImage& before, const QImage& after, double ratio);

}  // namespace vemra::qttest
