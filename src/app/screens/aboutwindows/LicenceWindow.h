// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/aboutwindows/LicenceDocument.h"
#include "app/screens/elements/WindowTasks.h"

#include <QList>
#include <QString>
#include <QWidget>

#include <optional>

class QListWidget;
class QPlainTextEdit;
class QStackedWidget;

namespace tonearm {

/// What the window with the licences holds.
struct LicenceWindowContent
{
    QList<LicenceDocument> documents = {};
    /// The id of the document that is shown.
    std::optional<QString> selection = {};

    bool operator==(const LicenceWindowContent &) const = default;
};

/// The licences of what comes with the application: a list, and the text of the one selected.
class LicenceWindow : public QWidget
{
    Q_OBJECT

public:
    /// Starts to look for the documents.
    explicit LicenceWindow(const std::optional<QString> &resourceFolder);

    /// No documents until they have been found.
    const LicenceWindowContent &content() const { return m_content; }

private:
    QWidget *makeReader();
    QWidget *makeList();
    QWidget *makeText();
    QCoro::Task<> findDocuments(std::optional<QString> resourceFolder, std::stop_token stop);
    void showDocuments(const QList<LicenceDocument> &documents);
    void select(int row);
    QCoro::Task<> readDocument(LicenceDocument document, std::stop_token stop);

    LicenceWindowContent m_content;
    QStackedWidget *m_places;
    QListWidget *m_list = nullptr;
    QPlainTextEdit *m_text = nullptr;
    WindowTasks m_tasks;
};

} // namespace tonearm
