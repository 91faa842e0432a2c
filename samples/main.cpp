// Writes the sample character anew: kelmo_sample FOLDER

#include "KMSampleCharacter.h"
#include "core/KMHeadlessSession.h"

#include <QApplication>
#include <QTextStream>

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QTextStream errors(stderr);
    if (arguments.size() != 2) {
        errors << "usage: kelmo_sample FOLDER\n";
        return 1;
    }
    const KMHeadlessSession session;
    if (KMSampleCharacter::write(QDir(arguments.at(1))))
        return 0;
    errors << "The sample can't be written to " << arguments.at(1) << '\n';
    return 3;
}
