#include "launcher/ReleaseNotes.h"

#include "family/Configuration.h"
#include "platform/ProfileFile.h"
#include "values/Error.h"

#include <QRegularExpression>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kVistas = u"NovedadesVistas"_s;

QVersionNumber VersionVista(const ArchivoPerfil& perfil) {
    const QString vista = perfil.Lee(kSeccionOpciones, kVistas);
    return QVersionNumber::fromString(vista.isEmpty() ? perfil.Lee(kSeccionOpciones, u"SysVersion") : vista);
}

} // namespace

QString NovedadesEntre(const QString& pagina, const QVersionNumber& vista, const QVersionNumber& propia) {
    static const QRegularExpression titulo(u"^## Versión (\\d+(?:\\.\\d+)*)"_s, QRegularExpression::MultilineOption);
    QString novedades;
    QRegularExpressionMatchIterator titulos = titulo.globalMatch(pagina);
    while (titulos.hasNext()) {
        const QRegularExpressionMatch actual = titulos.next();
        const QVersionNumber version = QVersionNumber::fromString(actual.capturedView(1));
        const qsizetype fin = titulos.hasNext() ? titulos.peekNext().capturedStart() : pagina.size();
        if (vista < version && version <= propia)
            novedades += pagina.mid(actual.capturedStart(), fin - actual.capturedStart());
    }
    return novedades;
}

QString NovedadesPorVer(const ArchivoPerfil& perfil, const QString& pagina, const QVersionNumber& propia) {
    const QVersionNumber vista = VersionVista(perfil);
    if (vista.isNull() || propia <= vista)
        return {};
    try {
        perfil.Escribe(kSeccionOpciones, kVistas, propia.toString());
    } catch (const Error&) {
        return {};
    }
    return NovedadesEntre(pagina, vista, propia);
}

} // namespace xa518
