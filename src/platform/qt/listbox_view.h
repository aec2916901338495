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

  private:
    void setUpHeaders();
    void syncHeading();
    void syncColumns();
    void syncSelection();
    // Has those cells in sight painted whose text is another than at the latest call.
    void updateCells();
    int selectedRow() const;
    void userSelected();
    void userClickedHeading(int column);
    void showTip(const QPoint& at);

    Listbox& model_;
    ListModel rows_;
    // Texts in sight, row by row from firstShown_ on.
    std::vector<QString> shown_;
    int firstShown_ = -1;
    bool syncing_ = false;
    bool sortedByUser_ = false;
};

}  // namespace bracken
