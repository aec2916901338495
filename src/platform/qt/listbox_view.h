#pragma once

#include <QTableView>
#include <vector>

#include "framework/controls/listbox.h"
#include "platform/qt/control_view.h"
#include "platform/qt/list_model.h"

namespace bracken {

// A list: a table view that reads the model's rows in place.
class ListboxView : public QTableView, public ControlView {
  public:
    ListboxView(Listbox& model, QWidget* parent);

    const Listbox& list() const { return model_; }

  protected:
    void sync() override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    // Home and End go to the first and last row.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

  private:
    void setUpHeaders();
    void syncHeading();
    void syncColumns();
    void syncSelection();
    // A cell in sight: what the model held of it and what of that was to be painted.
    struct Shown {
        QString start;
        QString text;
    };

    // Has those cells in sight painted whose text is another than at the latest call.
    void updateCells();
    bool takeOverCell(const QModelIndex& cell, Shown& shown) const;
    int selectedRow() const;
    void userSelected();
    void userClickedHeading(int column);
    void showTip(const QPoint& at);

    Listbox& model_;
    ListModel rows_;
    // Row by row from firstShown_ on.
    std::vector<Shown> shown_;
    int firstShown_ = -1;
    bool syncing_ = false;
};

}  // namespace bracken
