// quillon-cli render, run as a program the way scripts use it, without a display.
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct RenderCommand : testing::Test
{
    QTemporaryDir dir;

    // Renders the example layout to the file with the extra arguments; the exit code.
    int Render(const QString& file, const QStringList& extra = {})
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("XDG_CONFIG_HOME", dir.path());
        // Headless: the command must find the offscreen platform by itself.
        for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            env.remove(name);
        process.setProcessEnvironment(env);
        process.start(
            QStringLiteral(QUILLON_RENDER_CLI),
            QStringList{"render", QStringLiteral(QUILLON_RENDER_EXAMPLES "/pushbutton-lamp.loc"),
                        dir.filePath(file), "--board", QStringLiteral(QUILLON_RENDER_BOARD)} +
                extra);
        process.waitForFinished(60000);
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
};

} // namespace

TEST_F(RenderCommand, WritesPngAtAScaleAndPdfAndRefusesABadScaleOrAnUnwritableFile)
{
    ASSERT_EQ(Render("layout.png"), 0);
    const QImage image(dir.filePath("layout.png"));
    ASSERT_EQ(image.size(), QSize(700, 1340));
    // The key's strip in input row 1 is drawn; the empty input row 2 is only framed.
    int inked = 0;
    for (int y = 32; y < 60; ++y)
        for (int x = 34; x < 90; ++x)
            inked += image.pixelColor(x, y) != image.pixelColor(5, 5);
    EXPECT_GT(inked, 300);
    EXPECT_EQ(image.pixelColor(60, 80), image.pixelColor(5, 5));

    ASSERT_EQ(Render("layout@2x.png", {"--scale", "2"}), 0);
    EXPECT_EQ(QImage(dir.filePath("layout@2x.png")).size(), QSize(1400, 2680));

    ASSERT_EQ(Render("layout.pdf"), 0);
    QFile pdf(dir.filePath("layout.pdf"));
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.read(5).startsWith("%PDF-"));
    EXPECT_GT(pdf.size(), 1000);
    // A bad scale or an unwritable file is refused.
    EXPECT_EQ(Render("x.png", {"--scale", "0"}), 2);
    EXPECT_EQ(Render("x.png", {"--scale", "many"}), 2);
    EXPECT_FALSE(QFile::exists(dir.filePath("x.png")));
    EXPECT_EQ(Render("missing/x.png"), 1);
}
