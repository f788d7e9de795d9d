// The list of recent layouts as rules over paths, and as a menu.
#include "shell/RecentFiles.h"

#include "platform/IniFile.h"
#include "platform/Notices.h"
#include "shell/Startup.h"
#include "tests/shell/CommandSession.h"

namespace vistor {
namespace {

class RecentFilesTest : public CommandAccount {
protected:
    QString layout(const QString& name) {
        write(root.filePath(name), "[TAB]\n0=" + name.toLatin1().left(20) + "\n");
        return root.filePath(name);
    }
};

TEST_F(RecentFilesTest, TenFilesEachOnceTheNewestFirst) {
    QStringList files;
    for (int i = 0; i < 12; ++i) files = withRecentFile(files, layout(QString("%1.vis").arg(i)));
    EXPECT_EQ(files.size(), 10);
    EXPECT_EQ(files.front(), root.filePath("11.vis"));
    QFile::link(root.filePath("5.vis"), root.filePath("link.vis"));
    for (const QString& same :
         {root.filePath("5.vis"), root.filePath("x/../5.vis"), root.filePath("link.vis")}) {
        files = withRecentFile(files, same);
        EXPECT_EQ(files.size(), 10);
        EXPECT_EQ(files.front(), QDir::cleanPath(same));
    }
    EXPECT_EQ(withRecentFile(files, "/a\nb.vis"), files);
    EXPECT_EQ(withRecentFile(files, QString(5000, u'x')), files);
    QString path; // every reader and writer keeps paths whole
    while (path.size() < 3900) path += "/a folder of some length";
    files = withRecentFile(files, path + "/ & 'x'.vis ");
    SettingsPath = root.filePath("vxvis.cfg");
    write(SettingsPath, "[VXVISTOR]\nLASTFILE=" + path.toLatin1() + "\n");
    ASSERT_TRUE(writeRecentFiles(SettingsPath, files));
    EXPECT_EQ(readRecentFiles(SettingsPath), files);
    EXPECT_EQ(lastLayout(), path);
    ASSERT_TRUE(writeRecentFiles(SettingsPath, {}));
    EXPECT_FALSE(read(SettingsPath).contains("RECENT"));
    EXPECT_EQ(lastLayout(), path);
}

TEST_F(RecentFilesTest, TheMenuOpensThemAsAnyLoadAndTellsOfMissingOnes) {
    CommandSession s(prompts, root.path());
    const QString one = layout("<b>one&two.vis");
    const QString gone = layout("gone.vis");
    writeRecentFiles(SettingsPath, {gone, one});
    QFile::remove(gone);
    QMenu* menu = s.open("recentFiles");
    ASSERT_TRUE(menu);
    ASSERT_EQ(menu->actions().size(), 4);
    EXPECT_TRUE(menu->actions()[1]->text().startsWith("&2  <b>one&&two.vis"));
    EXPECT_TRUE(menu->actions()[1]->toolTip().contains("<b>one&two"));
    s.choose(menu, menu->actions()[0]);
    EXPECT_TRUE(notices().back().text.contains(gone));
    EXPECT_EQ(s.placed(), 1);

    menu = s.open("recentFiles");
    s.choose(menu, menu->actions()[1]); // something stands on the page
    EXPECT_TRUE(s.opened("frmLoadOptions"));
    EXPECT_EQ(s.page.ProfilePath, "");
    s.page.mnuNew_Click();
    menu = s.open("recentFiles");
    s.choose(menu, menu->actions()[1]);
    EXPECT_EQ(s.page.ProfilePath, one);
    EXPECT_TRUE(s.page.ProfileChanged);
    EXPECT_EQ(readRecentFiles(SettingsPath), QStringList({one, gone}));
    prompts.files = {root.filePath("new.vis")};
    s.page.mnuSaveAs_Click();
    EXPECT_EQ(readRecentFiles(SettingsPath).front(), root.filePath("new.vis"));
}

} // namespace
} // namespace vistor
