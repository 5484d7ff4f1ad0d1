#include "launcher/ModuleStart.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kModulo = u"xa518"_s;

} // namespace

Veredicto IniciaModulo(const QString& carpeta) {
    QString programa = QStandardPaths::findExecutable(kModulo, {carpeta});
    if (programa.isEmpty())
        programa = QStandardPaths::findExecutable(kModulo);
    if (programa.isEmpty())
        return Veredicto::Critico(
            u"No se encuentra el programa %1, ni en '%2' ni en las carpetas de PATH. Instale el módulo y"
            " vuelva a intentarlo."_s.arg(kModulo, QDir::toNativeSeparators(carpeta)));
    if (!QProcess::startDetached(programa, {}))
        return Veredicto::Critico(
            u"No se pudo iniciar '%1'. Revise que el programa esté completo y que se pueda ejecutar."_s.arg(
                QDir::toNativeSeparators(programa)));
    return Veredicto::Bien();
}

} // namespace xa518
