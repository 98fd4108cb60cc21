// SPDX-License-Identifier: GPL-3.0-or-later
#include "sample/SampleJob.h"

#include "helpers/Widgets.h"

#include <QLineEdit>
#include <QTest>

#include <stdexcept>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMilliseconds = 60000;

[[noreturn]] void fail(const QString &what)
{
    throw std::runtime_error(what.toStdString());
}

} // namespace

SampleJob::SampleJob(MainWindow &window)
    : m_window(window)
{
    window.keepWithin({1920, 1200});
    window.resize(940, 960);
    if (!test::showActive(window))
        fail(u"the window didn't come up"_s);
}

void SampleJob::chooseSource(const QString &file)
{
    if (!test::drop(find(u"Input file drop area"_s), {QUrl::fromLocalFile(file)}))
        fail(u"the window didn't take %1"_s.arg(file));
    waitFor(u"Song title for chapter 1"_s);
}

void SampleJob::chooseOutput(const QString &folder)
{
    if (!test::drop(find(u"Output folder drop area"_s), {QUrl::fromLocalFile(folder)}))
        fail(u"the window didn't take %1"_s.arg(folder));
}

void SampleJob::fillIn(const QString &label, const QString &text)
{
    auto *box = test::named<QLineEdit>(m_window, label);
    if (box == nullptr)
        fail(u"there is no one text box \"%1\" in the window"_s.arg(label));
    test::click(*box);
    test::press(Qt::Key_A, Qt::ControlModifier);
    test::type(text);
}

void SampleJob::encode(const QString &expectedSummary)
{
    QWidget &button = find(u"Encode to FLAC"_s);
    if (!QTest::qWaitFor([&] { return button.isEnabled(); }, patienceMilliseconds))
        fail(u"the job can't be started"_s);
    test::click(button);
    waitFor(expectedSummary);
}

QWidget &SampleJob::find(const QString &accessibleName)
{
    QWidget *widget = test::named(m_window, accessibleName);
    if (widget == nullptr)
        fail(u"there is no one \"%1\" in the window"_s.arg(accessibleName));
    return *widget;
}

void SampleJob::waitFor(const QString &accessibleName)
{
    const auto isThere = [&] { return test::named(m_window, accessibleName) != nullptr; };
    if (!QTest::qWaitFor(isThere, patienceMilliseconds))
        fail(u"\"%1\" never showed"_s.arg(accessibleName));
}

} // namespace tonearm
