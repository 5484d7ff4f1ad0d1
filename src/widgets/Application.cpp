#include "widgets/Application.h"

#include "platform/Notices.h"
#include "platform/WorkThread.h"
#include "values/Error.h"
#include "widgets/HouseStyle.h"
#include "widgets/KeyManners.h"

#include <QAbstractButton>
#include <QLibraryInfo>
#include <QScopeGuard>
#include <QSignalBlocker>
#include <QtDebug>

#include <new>
#include <optional>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString TextoDeLaFalla() {
    try {
        throw;
    } catch (const Error& falla) {
        AnotaDetalle(falla);
        return falla.Texto();
    } catch (const std::bad_alloc&) {
        return u"No hay memoria suficiente."_s;
    } catch (const std::exception& falla) {
        qWarning("%s", falla.what());
        return u"Se produjo un error inesperado."_s;
    } catch (...) {
        return u"Se produjo un error desconocido."_s;
    }
}

bool EstaTapada(const QWidget& control) {
    const QWidget* modal = QApplication::activeModalWidget();
    for (const QWidget* forma = &control; forma; forma = forma->parentWidget()) {
        if (forma == modal)
            return false;
    }
    return modal != nullptr;
}

/// The toolkit clicks a button a moment after its access key, even if it has been disabled since or another form has
/// come in front.
bool EsPulsacionTardia(const QObject* receptor, const QEvent* evento) {
    if (evento->type() != QEvent::Timer)
        return false;
    const auto* boton = qobject_cast<const QAbstractButton*>(receptor);
    return boton && (!boton->isEnabled() || EstaTapada(*boton));
}

/// The toolkit's own start looks for its plugins by names with a star already.
int& TrasPrepararLosHilos(int& argc) {
    PreparaLosHilos();
    return argc;
}

} // namespace

Aplicacion::Aplicacion(int& argc, char** argv, Avisos& avisos)
    : QApplication(TrasPrepararLosHilos(argc), argv), m_avisos(&avisos) {
    setStyle(new EstiloDeLaCasa); // the application owns it
    if (m_idioma.load(u"qtbase_es"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)) ||
        m_idioma.load(u":/idioma/qtbase_es.qm"_s))
        installTranslator(&m_idioma);
}

bool Aplicacion::notify(QObject* receptor, QEvent* evento) {
    if (m_teclado.EsTeclaPerdida(*receptor, *evento)) {
        evento->accept();
        return true;
    }
    std::optional<QSignalBlocker> callado;
    if (EsPulsacionTardia(receptor, evento))
        callado.emplace(receptor);
    try {
        return QApplication::notify(receptor, evento);
    } catch (...) {
        AtiendeFalla(TextoDeLaFalla());
        return false;
    }
}

void Aplicacion::AtiendeFalla(const QString& texto) {
    while (overrideCursor())
        restoreOverrideCursor();
    if (m_mostrando) { // a window that fails at each repaint must not pile up boxes
        qWarning().noquote() << texto;
        return;
    }
    m_mostrando = true;
    const auto alSalir = qScopeGuard([this] { m_mostrando = false; });
    m_avisos->Muestra({Icono::Critico, texto, {}});
}

void AtiendeFallaEnCurso() {
    auto* aplicacion = qobject_cast<Aplicacion*>(qApp);
    if (!aplicacion)
        throw;
    aplicacion->AtiendeFalla(TextoDeLaFalla());
}

} // namespace xa518
