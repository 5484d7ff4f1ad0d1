#include "import/Correction.h"

#include "import/ImportFormat.h"
#include "values/FileFailure.h"

#include <algorithm>
#include <map>

namespace xa518 {

Correccion::Correccion(std::shared_ptr<const LineasRechazadas> lineas, const FormatoImportacion& formato,
                       QString original)
    : m_originales(std::move(lineas))
    , m_formato(formato)
    , m_original(std::move(original))
    , m_fallas(m_originales->Fallas()) {
    m_lineas.reserve(static_cast<size_t>(Cuantas()));
    for (int cual = 0; cual < Cuantas(); ++cual)
        m_lineas.push_back({m_originales->Falla(cual), EstadoDeLinea::Rechazada});
}

void Correccion::ConservaOriginal() {
    constexpr qint64 kTrozo = 1 << 20;
    QFile original(m_original);
    if (m_copia.isOpen())
        return;
    if (!original.open(QIODevice::ReadOnly))
        throw FallaDeArchivo(Intento::Leer, original);
    if (!m_copia.open())
        throw FallaDeArchivo(Intento::Escribir, m_copia);
    while (!original.atEnd()) {
        const QByteArray bytes = original.read(kTrozo);
        if (bytes.isEmpty() || m_copia.write(bytes) != bytes.size())
            throw FallaDeArchivo(bytes.isEmpty() ? Intento::Leer : Intento::Escribir,
                                 bytes.isEmpty() ? static_cast<QIODevice&>(original) : m_copia);
    }
    if (!m_copia.flush())
        throw FallaDeArchivo(Intento::Escribir, m_copia);
    m_original = m_copia.fileName();
}

QString Correccion::Texto(int cual) const {
    const auto corregido = m_textos.constFind(cual);
    return corregido == m_textos.cend() ? m_originales->Texto(cual) : QString::fromUtf8(*corregido);
}

QStringList Correccion::Celdas(const QString& texto) const {
    const int campos = m_formato.Campos();
    QStringList celdas;
    qsizetype desde = 0;
    while (celdas.size() < campos) {
        const qsizetype separador = texto.indexOf(u'|', desde);
        celdas.append(texto.mid(desde, separador < 0 ? -1 : separador - desde));
        if (separador < 0)
            break;
        desde = separador + 1;
    }
    const bool entera = celdas.size() == campos && texto.count(u'|') >= campos;
    celdas.resize(campos);
    celdas.append(entera ? texto.mid(desde) : QString());
    return celdas;
}

void Correccion::PonTexto(int cual, const QString& texto) {
    if (texto == Texto(cual))
        return;
    m_guardadas = false;
    if (texto == m_originales->Texto(cual))
        m_textos.remove(cual);
    else
        m_textos.insert(cual, texto.toUtf8());
}

void Correccion::PonCelda(const CeldaDeLinea& celda, const QString& valor) {
    QStringList celdas = Celdas(Texto(celda.cual));
    if (celdas.at(celda.campo) == valor)
        return;
    celdas[celda.campo] = valor;
    PonTexto(celda.cual, celdas.join(u'|'));
}

void Correccion::Restaura(int cual) {
    m_guardadas = m_guardadas && !m_textos.contains(cual);
    m_textos.remove(cual);
    De(cual).estado = EstadoDeLinea::Rechazada;
}

void Correccion::RestauraTodas() {
    for (const int cual : m_textos.keys())
        Restaura(cual);
}

bool Correccion::EstaCorregida(int cual, int celda) const {
    return EstaCorregida(cual) && Celdas(Texto(cual)).at(celda) != Celdas(m_originales->Texto(cual)).at(celda);
}

QList<int> Correccion::ConLaMismaFalla(int cual) const {
    const quint16 falla = De(cual).falla;
    const int campo = m_fallas[falla].campo;
    QList<int> iguales;
    for (int otra = 0; campo >= 0 && otra < Cuantas(); ++otra) {
        const bool igual = De(otra).falla == falla && De(otra).estado == EstadoDeLinea::Rechazada;
        if (igual && otra != cual && !EstaCorregida(otra, campo))
            iguales.append(otra);
    }
    return iguales;
}

bool Correccion::EsDe(int cual, const FiltroDeLineas& filtro) const {
    const Linea& linea = De(cual);
    if (filtro.clase == FiltroDeLineas::Clase::QuePasan)
        return linea.estado == EstadoDeLinea::Pasa;
    const bool deEsa = filtro.clase == FiltroDeLineas::Clase::Rechazadas || linea.falla == filtro.falla;
    return linea.estado == EstadoDeLinea::Rechazada && deEsa;
}

QList<int> Correccion::Lineas(const FiltroDeLineas& filtro) const {
    QList<int> lineas;
    for (int cual = 0; cual < Cuantas(); ++cual) {
        if (EsDe(cual, filtro))
            lineas.append(cual);
    }
    return lineas;
}

QList<int> Correccion::PorCorrer(const FiltroDeLineas& filtro) const {
    QList<int> lineas = Lineas(filtro);
    if (filtro.clase == FiltroDeLineas::Clase::Rechazadas) {
        lineas += Lineas({FiltroDeLineas::Clase::QuePasan});
        std::sort(lineas.begin(), lineas.end());
    }
    return lineas;
}

QList<GrupoDeFalla> Correccion::Grupos() const {
    std::map<quint16, int> cuentas;
    for (const Linea& linea : m_lineas) {
        if (linea.estado == EstadoDeLinea::Rechazada)
            ++cuentas[linea.falla];
    }
    QList<GrupoDeFalla> grupos;
    for (const auto& [falla, lineas] : cuentas)
        grupos.append({falla, lineas});
    std::stable_sort(grupos.begin(), grupos.end(),
                     [](const GrupoDeFalla& uno, const GrupoDeFalla& otro) { return uno.lineas > otro.lineas; });
    return grupos;
}

int Correccion::Cuantas(EstadoDeLinea estado) const {
    return static_cast<int>(
        std::count_if(m_lineas.cbegin(), m_lineas.cend(), [&](const Linea& linea) { return linea.estado == estado; }));
}

void Correccion::Anota(const QList<VeredictoDeLinea>& veredictos, bool prueba) {
    for (const VeredictoDeLinea& veredicto : veredictos) {
        Linea& linea = De(veredicto.cual);
        if (veredicto.falla)
            linea = {m_fallas.NumeroDe(*veredicto.falla), EstadoDeLinea::Rechazada};
        else
            linea.estado = prueba ? EstadoDeLinea::Pasa : EstadoDeLinea::Importada;
        if (linea.estado == EstadoDeLinea::Importada)
            m_textos.remove(veredicto.cual);
    }
}

} // namespace xa518
