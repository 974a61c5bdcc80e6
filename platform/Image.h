#pragma once

#include <QString>

#include <utility>

namespace quorvantel::platform {

/// A handle to an image that the system supplies: the icon of an application, or a system symbol.
///
/// The handle only names the image. An `ImageLoader` resolves and decodes it when a row is drawn,
/// so a catalogue of a thousand targets holds no pixels. Handles share their text and are cheap to
/// copy.
struct Image {
    enum class Source {
        None,      ///< There is no image; the view shows its own placeholder.
        File,      ///< `name` is the absolute path of an image file or of a bundle.
        IconTheme, ///< `name` is a name in the desktop's icon theme (Icon Theme Specification).
        Symbol,    ///< `name` is a system symbol name such as "gearshape".
    };

    Source source = Source::None;
    QString name;
    /// What the image shows, for assistive technology; empty when the text beside it says the same.
    QString description;
    /// The system symbol to show where the image turns out to be missing; empty for the view's own
    /// placeholder.
    QString substitute;

    static Image file(QString path) { return {Source::File, std::move(path), {}, {}}; }
    static Image iconTheme(QString name) { return {Source::IconTheme, std::move(name), {}, {}}; }
    static Image symbol(QString name, QString description) {
        return {Source::Symbol, std::move(name), std::move(description), {}};
    }

    bool isNull() const { return source == Source::None; }

    /// Whether only the shape of the image counts, to be filled with a colour of the palette: a
    /// symbol, or a symbolic icon of the theme.
    bool isTemplate() const {
        return source == Source::Symbol ||
               (source == Source::IconTheme && name.endsWith(QStringLiteral("-symbolic")));
    }

    friend bool operator==(const Image&, const Image&) = default;
};

} // namespace quorvantel::platform
