// The Qt kit's tests run offscreen, with one QApplication and one pinned font.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>
#include <QLocale>
#include <cstdlib>

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
    QApplication::setFont(QFont("DejaVu Sans", 9));
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));  // the calendar's month and day names
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
