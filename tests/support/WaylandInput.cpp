#include "support/WaylandInput.h"

#include <QFile>

#include <linux/input-event-codes.h>

#include <cstring>
#include <stdexcept>
#include <utility>

namespace quorvantel::testing {
namespace {

using namespace Qt::StringLiterals;

int keyOf(char character) {
    // The letters of each row have codes in a row.
    constexpr std::pair<int, const char*> rows[]{
        {KEY_Q, "qwertyuiop"}, {KEY_A, "asdfghjkl"}, {KEY_Z, "zxcvbnm"}, {KEY_SPACE, " "}};
    for (const auto& [first, letters] : rows) {
        if (const char* const found = std::strchr(letters, character)) {
            return first + static_cast<int>(found - letters);
        }
    }
    throw std::runtime_error("no key types this character");
}

/// KWin takes input only from programs of its own user, which may not reach the folder where the
/// tests are built.
ChildProcess::Launch launch(const WaylandCompositor& compositor) {
    ChildProcess::Launch launch{.program = compositor.copyOf(QStringLiteral(WAYLAND_INPUT_PROGRAM)),
                                .announcesItself = true,
                                .takesCommands = true,
                                .refusesRoot = true};
    launch.environment = compositor.environment();
    return launch;
}

} // namespace

WaylandInput::WaylandInput(const WaylandCompositor& compositor)
    : m_compositor(compositor), m_process(launch(compositor)) {
    awaitDone();
}

void WaylandInput::awaitDone() {
    const QByteArray answer = m_process.readLine();
    if (answer != "done") {
        throw std::runtime_error(answer.toStdString());
    }
}

void WaylandInput::send(const QString& command) {
    m_process.writeLine(command.toUtf8());
    awaitDone();
}

void WaylandInput::press(std::initializer_list<int> keys) {
    for (const int key : keys) {
        setKeyDown(key, true);
    }
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key) {
        setKeyDown(*key, false);
    }
}

void WaylandInput::setKeyDown(int key, bool down) {
    send(u"key %1 %2"_s.arg(key).arg(down ? 1 : 0));
}

void WaylandInput::type(const QByteArray& text) {
    for (const char character : text) {
        press({keyOf(character)});
    }
}

void WaylandInput::moveTo(const QPoint& position) {
    const QSize size = m_compositor.size();
    send(u"move %1 %2 %3 %4"_s.arg(position.x())
             .arg(position.y())
             .arg(size.width())
             .arg(size.height()));
}

void WaylandInput::setButtonDown(bool down) {
    send(u"button %1 %2"_s.arg(BTN_LEFT).arg(down ? 1 : 0));
}

void WaylandInput::click(const QPoint& position) {
    moveTo(position);
    setButtonDown(true);
    setButtonDown(false);
}

} // namespace quorvantel::testing
