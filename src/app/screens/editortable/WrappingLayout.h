// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace tonearm {

/// Puts things side by side, as wide as they like to be, and into a further line what no longer fits.
class WrappingLayout : public QLayout
{
    Q_OBJECT

public:
    /// `gap` is between things in a line, `lineGap` between lines.
    WrappingLayout(int gap, int lineGap, QWidget *parent);
    ~WrappingLayout() override;
    WrappingLayout(const WrappingLayout &) = delete;
    WrappingLayout &operator=(const WrappingLayout &) = delete;

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect &place) override;

private:
    int arrange(const QRect &place, bool isForReal) const;

    int m_gap;
    int m_lineGap;
    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

} // namespace tonearm
