#pragma once

#include <QImage>
#include <QString>

#include <functional>

namespace quorvantel::gallery {

/// One picture of the gallery.
///
/// To add one, write a function that builds the views, brings them into the state to be shown and
/// returns their picture, and append it to a list that `main` draws.
struct Scene {
    /// Where it is drawn: on a screen of scale 2 only, or at 1, 1.5 and 2 for the look of thin
    /// lines.
    enum class Scales { Sharp, All };

    /// Names the file, which further carries the scale: "results-dark@2x.png".
    QString name;
    /// Draws the picture in device pixels for the scale that the process runs at.
    std::function<QImage()> draw;
    Scales scales = Scales::Sharp;
};

} // namespace quorvantel::gallery
