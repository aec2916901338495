#pragma once

#include <QLabel>

#include "framework/controls/plain_controls.h"
#include "platform/qt/control_view.h"

namespace bracken {

// A label: wraps anywhere if it has several lines, else shows as much as fits. What does not fit
// stands in a tool tip.
class StaticTextView : public QLabel, public ControlView {
  public:
    StaticTextView(StaticText& model, QWidget* parent);

  protected:
    void sync() override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    // How many lines the label has room for.
    int room(const QFont& font) const;
    QStringList lines(const QString& text, const QFont& font) const;
    bool fits(const QString& text, const QFont& font) const;
    QFont textFont() const;
    // The text, or as much of it as fits beside an ellipsis.
    QString visibleText() const;

    StaticText& model_;
};

}  // namespace bracken
