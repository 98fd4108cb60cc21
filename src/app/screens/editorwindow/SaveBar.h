// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

class QLabel;
class QPushButton;

namespace tonearm {

class IconLabel;
class MetadataEditorModel;
struct SaveBarState;

/// The end of an editing session: what a save would do, does or has done, and the buttons to save and to
/// leave.
class SaveBar : public QWidget
{
    Q_OBJECT

public:
    /// `editing` is what can't be used while a save runs. Who used one of these by keyboard is brought to the
    /// button that stops the save, and back at its end.
    SaveBar(MetadataEditorModel &model, const QList<QWidget *> &editing, QWidget *parent = nullptr);

Q_SIGNALS:
    void cancelled();

private:
    QWidget *makeProgress();
    void showState(const SaveBarState &state);
    void setSaving(bool isSaving, bool canSave);
    void giveFocusBack();

    MetadataEditorModel &m_model;
    QList<QWidget *> m_editing;
    QPushButton *m_stop = nullptr;
    QWidget *m_progress;
    IconLabel *m_completion;
    QLabel *m_pending;
    QPushButton *m_cancel;
    QPushButton *m_save;
    QPointer<QWidget> m_focusBefore;
    bool m_isSaving = false;
};

} // namespace tonearm
