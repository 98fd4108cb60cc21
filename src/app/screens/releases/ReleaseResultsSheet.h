// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QBoxLayout;
class QPushButton;

namespace tonearm {

class AppModel;
class ReleaseList;

/// The sheet over the main window in which the user picks one release. It holds the highlight and nothing
/// else; choosing is the model's.
class ReleaseResultsSheet : public QDialog
{
    Q_OBJECT

public:
    ReleaseResultsSheet(AppModel &model, QWidget *window);

protected:
    bool event(QEvent *event) override;

private:
    void fitHeight();
    void addHeader(QBoxLayout *column);
    void addStatus(QBoxLayout *column);
    void addList(QBoxLayout *column);
    QWidget *makePlaceholder();
    void addNoticesAndButtons(QBoxLayout *column);
    QPushButton *makeCancelButton();
    QPushButton *makeUseButton();
    void highlightIfNone();
    void choose();

    AppModel &m_model;
    ReleaseList *m_list;
};

/// Shows the sheet over a window whenever the model wants the results shown.
void showReleaseResults(QWidget *window, AppModel &model);

} // namespace tonearm
