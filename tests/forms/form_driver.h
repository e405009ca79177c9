#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <chrono>
#include <deque>
#include <functional>
#include <set>
#include <string>

namespace snippetarium::test {

// What a user does to windows, for tests.

/// Lets events run until the condition holds; fails the test when that takes too long.
inline bool WaitUntil(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            ADD_FAILURE() << "what was waited for did not happen";
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

/// Lets all waiting events run.
inline void RunEvents() {
    // An event that was handed on more than once has come to its end then.
    for (int round = 0; round < 4; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// The control of that name; a failure where there is none or it is of another kind.
template <typename Control>
Control& Find(QObject& window, const char* name) {
    auto* control = window.findChild<Control*>(name);
    if (control == nullptr) {
        throw std::runtime_error(std::string("there is no control ") + name);
    }
    return *control;
}

inline void PressKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                     const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(&widget, &release);
}

/// A click with the left button at a place of the widget.
inline void ClickAt(QWidget& widget, const QPoint& place) {
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const bool isDown = type == QEvent::MouseButtonPress;
        QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton,
                          isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
}

/// Acts on modal windows in the order in which they come up. What was expected and did not come
/// fails the test, and so does a window that nobody expected.
class ModalDriver {
  public:
    ModalDriver() {
        timer_.setInterval(2);
        QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
        timer_.start();
    }
    ~ModalDriver() {
        if (!actions_.empty()) ADD_FAILURE() << actions_.size() << " expected windows never came";
    }
    ModalDriver(const ModalDriver&) = delete;
    ModalDriver& operator=(const ModalDriver&) = delete;

    void Expect(std::function<void(QWidget&)> action) { actions_.push_back(std::move(action)); }

    /// A message box; presses its button and notes its text.
    void ExpectBox(QMessageBox::StandardButton button) {
        Expect([this, button](QWidget& window) {
            auto* box = qobject_cast<QMessageBox*>(&window);
            if (box == nullptr) {
                ADD_FAILURE() << window.objectName().toStdString() << " is no message box";
                return static_cast<void>(window.close());
            }
            texts.push_back(box->text().toStdString());
            titles.push_back(box->windowTitle().toStdString());
            box->button(button)->click();
        });
    }
    /// Empty where there was no box.
    std::string LastText() const { return texts.empty() ? std::string() : texts.back(); }

    std::vector<std::string> texts;
    std::vector<std::string> titles;

  private:
    void Look() {
        QWidget* const window = QApplication::activeModalWidget();
        if (window == nullptr || handled_.contains(window)) return;
        if (window->inherits("snippetarium::ProgressWindow")) return;
        handled_.insert(window);
        QObject::connect(window, &QObject::destroyed, &timer_,
                         [this](const QObject* gone) { handled_.erase(gone); });
        if (actions_.empty()) {
            const auto* box = qobject_cast<QMessageBox*>(window);
            ADD_FAILURE() << "unexpected window "
                          << (box != nullptr ? box->text() : window->objectName()).toStdString();
            window->close();
            return;
        }
        const auto action = std::move(actions_.front());
        actions_.pop_front();
        action(*window);
    }

    QTimer timer_;
    std::deque<std::function<void(QWidget&)>> actions_;
    std::set<const QObject*> handled_;
};

}  // namespace snippetarium::test
