// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/SectionBox.h"

class QBoxLayout;
class QLineEdit;

namespace tonearm {

class AppModel;
class GenreCatalog;

/// Section 2: what the tags say of the album, the search that fills it in, and the cover.
class MetadataSearchSection : public SectionBox
{
    Q_OBJECT

public:
    MetadataSearchSection(AppModel &model, const GenreCatalog &genres, QWidget *parent = nullptr);

Q_SIGNALS:
    /// The user wants to see the cover in its window.
    void coverArtRequested();

private:
    void addFields(QBoxLayout *column, const GenreCatalog &genres);
    QWidget *makeSearchButton();
    void addYearWarning(QBoxLayout *column);
    QLineEdit *fillYearAndDisc(QWidget *group);

    AppModel &m_model;
};

} // namespace tonearm
