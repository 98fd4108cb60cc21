// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/aboutwindows/AboutFacts.h"

#include <QList>
#include <QUrl>
#include <QWidget>

#include <functional>

class QVBoxLayout;

namespace tonearm {

class AppModel;

/// The About window. Opening it has the model look for the audio tools unless they are known.
class AboutView : public QWidget
{
    Q_OBJECT

public:
    /// Shows a page to the user.
    using OpenLink = std::function<void(const QUrl &)>;

    /// The model has to outlive the window.
    AboutView(AppModel &model, const VersionRecord &record, OpenLink openLink);

Q_SIGNALS:
    /// The user wants to see the licences in their window.
    void licencesRequested();

protected:
    void showEvent(QShowEvent *event) override;

private:
    struct Link
    {
        QString text;
        QStringView page;
    };

    QWidget *makeLinks(const QString &title, const QList<Link> &links);
    QWidget *makeProduct(const QString &version);
    QWidget *makeMaker();
    QWidget *makeReference();
    QWidget *makeLicences();
    void addCopyright(QVBoxLayout *column, const QString &notice);

    AppModel &m_model;
    OpenLink m_openLink;
};

} // namespace tonearm
