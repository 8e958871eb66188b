// quillon-cli render, run as a program the way scripts use it, without a display.
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

int Render(const QStringList& args)
{
    static QTemporaryDir home;
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("XDG_CONFIG_HOME", home.path());
    // Headless: the command must find the offscreen platform by itself.
    env.remove("QT_QPA_PLATFORM");
    env.remove("DISPLAY");
    env.remove("WAYLAND_DISPLAY");
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(QUILLON_RENDER_CLI), args);
    process.waitForFinished(60000);
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

const QString kLayout = QStringLiteral(QUILLON_RENDER_EXAMPLES "/pushbutton-lamp.loc");
const QString kBoard = QStringLiteral(QUILLON_RENDER_BOARD);

} // namespace

TEST(RenderCommand, WritesTheDrawingAsPng)
{
    QTemporaryDir dir;
    const QString out = dir.filePath("layout.png");
    ASSERT_EQ(Render({"render", kLayout, out, "--board", kBoard}), 0);
    const QImage image(out);
    ASSERT_EQ(image.size(), QSize(700, 1340));
    // The key's strip in input row 1 is drawn; the empty input row 2 is only framed.
    int inked = 0;
    for (int y = 32; y < 60; ++y)
        for (int x = 34; x < 90; ++x)
            inked += image.pixelColor(x, y) != image.pixelColor(5, 5);
    EXPECT_GT(inked, 300);
    EXPECT_EQ(image.pixelColor(60, 80), image.pixelColor(5, 5));
}

TEST(RenderCommand, ScaleGivesMorePixelsForTheSameDrawing)
{
    QTemporaryDir dir;
    const QString out = dir.filePath("layout@2x.png");
    ASSERT_EQ(Render({"render", kLayout, out, "--scale", "2", "--board", kBoard}), 0);
    EXPECT_EQ(QImage(out).size(), QSize(1400, 2680));
}

TEST(RenderCommand, WritesThePrintedPageAsPdf)
{
    QTemporaryDir dir;
    const QString out = dir.filePath("layout.pdf");
    ASSERT_EQ(Render({"render", kLayout, out, "--board", kBoard}), 0);
    QFile file(out);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.read(5).startsWith("%PDF-"));
    EXPECT_GT(file.size(), 1000);
}

TEST(RenderCommand, RefusesABadScaleAndAnUnwritableFile)
{
    QTemporaryDir dir;
    EXPECT_EQ(Render({"render", kLayout, dir.filePath("x.png"), "--scale", "0", "--board", kBoard}),
              2);
    EXPECT_EQ(
        Render({"render", kLayout, dir.filePath("x.png"), "--scale", "many", "--board", kBoard}),
        2);
    EXPECT_FALSE(QFile::exists(dir.filePath("x.png")));
    EXPECT_EQ(Render({"render", kLayout, dir.filePath("missing/x.png"), "--board", kBoard}), 1);
}
