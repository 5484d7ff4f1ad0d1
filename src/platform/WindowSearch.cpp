#include "platform/WindowSearch.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLargoDeClase = 256;

/// The window system's own search: hidden windows too, the title and the class without case. An empty class is any.
Manejador BuscaVentana(VentanasDelSistema& sistema, const QString& titulo, const QString& clase) {
    for (const Manejador ventana : sistema.Superiores()) {
        const bool esSuya = clase.isEmpty() || sistema.Clase(ventana).compare(clase, Qt::CaseInsensitive) == 0;
        if (esSuya && sistema.Titulo(ventana).compare(titulo, Qt::CaseInsensitive) == 0)
            return ventana;
    }
    return 0;
}

} // namespace

bool cWindows::CorreApp(const QString& titulo) {
    m_vistas.clear();
    for (const Manejador ventana : m_sistema->Superiores()) {
        if (!m_sistema->EsVisible(ventana))
            continue;
        const QString suyo = m_sistema->Titulo(ventana);
        if (suyo.isEmpty())
            continue;
        m_vistas.insert(suyo, ventana);
        if (suyo == titulo)
            return true;
    }
    return false;
}

void cWindows::CloseApp(const QString& titulo, const QString& clase) {
    if (titulo == u"Progman")
        return;
    if (const Manejador ventana = BuscaVentana(*m_sistema, titulo, clase))
        m_sistema->PideCierre(ventana);
}

QString cWindows::ClassName(const QString& titulo) {
    const Manejador ventana = BuscaVentana(*m_sistema, titulo, {});
    return ventana ? m_sistema->Clase(ventana).left(kLargoDeClase) : QString();
}

} // namespace xa518
