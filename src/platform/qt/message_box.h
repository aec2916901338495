#pragma once

#include <QMessageBox>
#include <string>

namespace bracken {

// The box of MsgBox: plain text always, since a server's words may look like markup. Main thread.
class MessageBox : public QMessageBox {
  public:
    // `code` as for MsgBox.
    MessageBox(const std::string& text, int code, const std::string& title, QWidget* above);

    // Spins an event loop until the user has answered; the result is MsgBox's.
    int ask();

  private:
    void makeRoomForTitle();

    int code_;
};

}  // namespace bracken
