// SPDX-License-Identifier: GPL-3.0-or-later
// For how long work on thousands of files keeps the whole window from answering. The figures go into the
// report of the run; nothing is asserted on them, since a machine may be busy with other things.
#include "editorwindow/EditorWindowTest.h"

#include "helpers/Heartbeat.h"

#include <iostream>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Field = EditableTagField;

namespace {

struct EditorWindowHeartbeat : EditorWindowTest
{
    EditorWindowHeartbeat()
    {
        QList<EditableAudioFile> rows;
        for (int number = 0; number < manyFiles; ++number)
            rows.append(filledRow(u"%1.flac"_s.arg(number), QString::number(1900 + number % 100)));
        show(rows);
        heart.run(1, [](int) {});
        heart.reset();
    }

    void keep(const std::string &flow)
    {
        const Heartbeat::Gap longest = heart.longest();
        RecordProperty(flow + "_longest_gap_us", std::to_string(longest.elapsed.count()));
        RecordProperty(flow + "_longest_work_us", std::to_string(longest.worked.count()));
        std::cout << flow << ": longest gap " << longest.elapsed.count() << " us, longest work "
                  << longest.worked.count() << " us\n";
        heart.reset();
    }

    static constexpr int manyFiles = 5000;
    Heartbeat heart;
};

} // namespace

TEST_F(EditorWindowHeartbeat, OfTypingIntoEveryFile)
{
    click(window.box(u"Year"_s));
    heart.run(10, [](int) { type(u"7"_s); });
    EXPECT_EQ(model.commonValue(Field::year), CommonValue::value(QString(10, u'7')));
    keep("type_for_5000");
    EXPECT_TRUE(window.shows(u"5000 files will be written."_s));
}

TEST_F(EditorWindowHeartbeat, OfSelecting)
{
    heart.run(10, [this](int step) { select({u"%1.flac"_s.arg(step)}); });
    EXPECT_EQ(window.box(u"Year"_s).text(), u"1909"_s);
    keep("select_1_of_5000");
}

} // namespace tonearm
