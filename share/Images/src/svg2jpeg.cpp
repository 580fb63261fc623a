// Paints a drawing in one height and saves it as the ending of the target says: svg2jpeg in.svg out.jpg|out.png pixels
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 4)
        return 2;
    QImageReader drawing(arguments[1], "svg");
    const int pixels = arguments[3].toInt();
    drawing.setScaledSize(drawing.size().scaled(4 * pixels, pixels, Qt::KeepAspectRatio));
    const QImage picture = drawing.read();
    // The quality counts for JPEG alone; a PNG of quality 96 would be stored all but uncompressed.
    const int quality = arguments[2].endsWith(".jpg") ? 96 : -1;
    return !picture.isNull() && picture.save(arguments[2], nullptr, quality) ? 0 : 1;
}
