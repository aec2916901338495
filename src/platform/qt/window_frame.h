#pragma once

#include <QRect>
#include <QTimer>
#include <QWidget>

#include "framework/windows/window.h"

namespace bracken {

// Keeps a window's frame in the model and on the screen the same. The model's frame is that of the
// content area; the widget's has the menu bar above it. Main thread, holding the baton.
class WindowFrame : public QObject {
  public:
    // `view` owns it.
    WindowFrame(Window& window, QWidget& view);

    // Height of the menu bar above the content.
    void setMenuHeight(int height) { menuHeight_ = height; }
    // Gives the widget the model's frame and the bounds of the user's resizing, if they differ.
    void apply();
    // The widget was moved or resized, by the user or as an answer to apply.
    void geometryChanged();

  protected:
    // The widget has been exposed: the frame is set once more, since window managers pull a new
    // window onto the screen.
    void customEvent(QEvent* event) override;

  private:
    QRect wanted() const;
    void setBounds();
    void set(const QRect& frame);
    void adopt();

    Window& window_;
    QWidget& view_;
    int menuHeight_ = 0;
    // The widget's frame as the model last had it.
    QRect known_;
    bool exposed_ = false;
    // Runs while the window system answers to a frame that the program set: until it has run out,
    // older frames may still be reported, and none is taken for the user's doing.
    QTimer settling_;
};

}  // namespace bracken
