#include "emotions/built_in_pictures.h"
#include "emotions/clsEmoticons.h"
#include "platform/image_list.h"
#include "support/text.h"

namespace {

TEST(BuiltInPictures, EachEmoticonHasOneOfItsOwn)
{
    ImageList list;
    addBuiltInEmoticons(list);
    const clsEmoticons table;
    EXPECT_EQ(list.count(), table.RowCount());
    QList<QImage> seen;
    for (const EmoticonEntry &row : table.Rows()) {
        const QImage image = list.image(u"e"_s + row.Name);
        EXPECT_EQ(image.deviceIndependentSize(), QSizeF(20, 20)) << row.Name.toStdString();
        EXPECT_EQ(image.size(), QSize(40, 40));
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << row.Name.toStdString() << " has no ground";
        EXPECT_FALSE(seen.contains(image)) << row.Name.toStdString() << " looks like another one";
        seen.append(image);
    }
}

TEST(BuiltInPictures, ASkinsPictureTakesThePlace)
{
    ImageList list;
    addBuiltInEmoticons(list);
    QImage own(1, 1, QImage::Format_RGB32);
    own.fill(Qt::green);
    const int number = list.index(u"eHappy"_s);
    const int count = list.count();
    const quint64 version = list.version();
    list.add(u"eHappy"_s, own);
    EXPECT_EQ(list.index(u"eHappy"_s), number);
    EXPECT_EQ(list.count(), count);
    EXPECT_EQ(list.image(u"eHappy"_s), own);
    EXPECT_GT(list.version(), version);
    list.add(u"sOnline"_s, own);
    EXPECT_EQ(list.index(u"sOnline"_s), count + 1) << "numbers are counted from 1";
    list.clear();
    EXPECT_TRUE(list.image(u"eHappy"_s).isNull());
    EXPECT_EQ(list.index(u"eHappy"_s), 0);
}

} // namespace
