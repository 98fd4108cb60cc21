// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/SectionBox.h"

class QLineEdit;

namespace tonearm {

class AppModel;
class GenreCatalog;

/// Section 2: what the tags say of the album.
class MetadataSearchSection : public SectionBox
{
    Q_OBJECT

public:
    MetadataSearchSection(AppModel &model, const GenreCatalog &genres, QWidget *parent = nullptr);

private:
    QLineEdit *fillYearAndDisc(QWidget *group);

    AppModel &m_model;
};

} // namespace tonearm
