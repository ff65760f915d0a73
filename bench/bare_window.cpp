// A window of the toolkit with nothing in it: what the client's start is held against.

#include <QApplication>
#include <QWidget>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(760, 540);
    window.show();
    return QApplication::exec();
}
