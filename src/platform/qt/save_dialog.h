#pragma once

#include <QFileDialog>
#include <string>

#include "framework/platform/platform.h"

namespace bracken {

// The desktop's dialog for a file to write, with its question about one that exists. Main thread,
// without the baton.
class SaveDialog : public QFileDialog {
  public:
    explicit SaveDialog(const SaveQuestion& question);

    // The path that the user chose, "" for none.
    std::string ask();
};

}  // namespace bracken
