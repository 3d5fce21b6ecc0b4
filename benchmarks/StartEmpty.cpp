// The least that a program with a main window can be.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1100, 720);
    window.show();
    return QApplication::exec();
}
