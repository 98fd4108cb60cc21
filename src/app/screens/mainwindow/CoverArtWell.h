// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QMenu;

namespace tonearm {

class AppModel;

/// The cover of the job: its well, and under it what is told of the picture.
class CoverArtWell : public QWidget
{
    Q_OBJECT

public:
    explicit CoverArtWell(AppModel &model, QWidget *parent = nullptr);

Q_SIGNALS:
    /// The user wants to see the cover in its window.
    void viewingRequested();

private:
    QWidget *makeWell();
    QWidget *makeSummary();
    void fillMenu(QMenu &menu);

    AppModel &m_model;
};

} // namespace tonearm
