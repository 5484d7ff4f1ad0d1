#include "launcher/ModuleStart.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>

namespace xa518 {

using namespace Qt::StringLiterals;

Veredicto IniciaModulo(const QString& modulo, const QString& carpeta, const QStringList& argumentos) {
    QString programa = QStandardPaths::findExecutable(modulo, {carpeta});
    if (programa.isEmpty())
        programa = QStandardPaths::findExecutable(modulo);
    if (programa.isEmpty())
        return Veredicto::Critico(
            u"No se encuentra el programa %1, ni en '%2' ni en las carpetas de PATH. Instale el módulo y"
            " vuelva a intentarlo."_s.arg(modulo, QDir::toNativeSeparators(carpeta)));
    if (!QProcess::startDetached(programa, argumentos))
        return Veredicto::Critico(
            u"No se pudo iniciar '%1'. Revise que el programa esté completo y que se pueda ejecutar."_s.arg(
                QDir::toNativeSeparators(programa)));
    return Veredicto::Bien();
}

} // namespace xa518
