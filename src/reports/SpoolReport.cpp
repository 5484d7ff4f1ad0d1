#include "reports/SpoolReport.h"

#include "reports/SpoolLines.h"
#include "reports/SpoolReader.h"
#include "values/Decimal.h"
#include "values/Error.h"
#include "values/FileFailure.h"
#include "values/ObjetoUtil.h"
#include "values/Text.h"

#include <QFile>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<QIODevice> AbreArchivo(const QString& ruta) {
    auto archivo = std::make_unique<QFile>(ruta);
    if (!archivo->open(QIODevice::ReadOnly))
        throw FallaDeArchivo(Intento::Leer, *archivo);
    return archivo;
}

/// The leading whole number of a text; 0 for none, and for one that no report could have.
int NumeroDeHojas(QStringView texto) {
    constexpr qsizetype kCifras = 9;
    const QStringView recortado = Recorta(texto);
    const auto* fin = std::find_if_not(recortado.begin(), recortado.end(), EsDigito);
    const QStringView cifras = recortado.first(fin - recortado.begin());
    return cifras.size() <= kCifras ? cifras.toInt() : 0;
}

/// The highest page that lines from an offset on stand on, from 1; 0 when there is none.
int PaginaMasAlta(QIODevice& archivo, qint64 desde) {
    int ultima = 0;
    LineasTolerantes lineas(archivo, desde);
    if (desde > 0 && !lineas.Siguiente()) // what is left of a line that began before
        return ultima;
    while (lineas.Siguiente()) {
        const int pagina = LineaSpool(lineas.Linea()).Pagina();
        if (pagina < InformeSpool::kPaginasMaximas)
            ultima = std::max(ultima, pagina + 1);
    }
    return ultima;
}

} // namespace

ColorPagina ColorPagina::Lee(QStringView literal) {
    constexpr uint kDelSistema = 0x80000000;
    QStringView cifras = Recorta(literal);
    if (!cifras.startsWith(u"&H", Qt::CaseInsensitive) || !cifras.endsWith(u'&'))
        return {};
    cifras = cifras.sliced(2).chopped(1);
    bool bien = false;
    const uint valor = cifras.toUInt(&bien, 16);
    const auto byte = [valor](int lugar) { return static_cast<int>((valor >> (8 * lugar)) & 0xffU); };
    if (!bien)
        return {};
    if ((valor & kDelSistema) != 0)
        return {true, byte(0)};
    return {false, 0, byte(0), byte(1), byte(2)};
}

void CabeceraInforme::Toma(const Etiqueta& etiqueta) {
    switch (etiqueta.clase) {
    case Etiqueta::Clase::Fuente: fuente = etiqueta.valor; break;
    case Etiqueta::Clase::Hojas: hojas = NumeroDeHojas(etiqueta.valor); break;
    case Etiqueta::Clase::Orientacion: apaisado = etiqueta.valor == u"H"; break;
    case Etiqueta::Clase::Color: color = ColorPagina::Lee(etiqueta.valor); break;
    }
}

std::unique_ptr<InformeSpool> InformeSpool::Abre(const QString& ruta) {
    return std::make_unique<InformeSpool>(AbreArchivo(ruta));
}

InformeSpool::InformeSpool(std::unique_ptr<QIODevice> entrada) : m_entrada(std::move(entrada)) {
    Indexa();
}

int InformeSpool::Paginas() const {
    return std::max(1, static_cast<int>(m_paginas.size()));
}

void InformeSpool::Indexa() {
    LineasTolerantes lineas(*m_entrada);
    while (lineas.Siguiente()) {
        const LineaSpool linea(lineas.Linea());
        if (linea.EsDePagina()) {
            Anota(linea.Pagina(), lineas.Inicio(), lineas.Fin());
        } else if (linea.EsEtiqueta()) {
            if (const auto comando = linea.Lee())
                m_cabecera.Toma(std::get<Etiqueta>(*comando));
        }
    }
}

/// From a page's first command to its last: commands of other pages in between, which no report writes, cost the time
/// of passing over them and no memory.
void InformeSpool::Anota(int pagina, qint64 desde, qint64 hasta) {
    if (pagina < 0 || pagina >= kPaginasMaximas)
        return;
    const auto indice = static_cast<size_t>(pagina);
    if (indice >= m_paginas.size())
        m_paginas.resize(indice + 1);
    Tramo& tramo = m_paginas[indice];
    if (tramo.hasta == 0)
        tramo.desde = desde;
    tramo.hasta = hasta;
}

void InformeSpool::RecorrePagina(int pagina, const Visita& visita) {
    if (pagina < 0 || static_cast<size_t>(pagina) >= m_paginas.size())
        return;
    const Tramo tramo = m_paginas[static_cast<size_t>(pagina)];
    LineasTolerantes lineas(*m_entrada, tramo.desde, tramo.hasta);
    while (lineas.Siguiente()) {
        const LineaSpool linea(lineas.Linea());
        if (linea.Pagina() != pagina)
            continue;
        if (const auto comando = linea.Lee())
            visita(*comando);
    }
}

/// Behind the range's last command only what still belongs to its page is of interest: a few pages of thousands are
/// soon told.
void InformeSpool::Imprime(const RangoPaginas& rango, DestinoInforme& destino) {
    int pagina = 0;
    const qint64 fin = FinDe(rango);
    LineasTolerantes lineas(*m_entrada);
    while (lineas.Siguiente()) {
        const LineaSpool linea(lineas.Linea());
        if (linea.EsDePagina()) {
            if (lineas.Inicio() >= fin)
                break;
            pagina = linea.Pagina();
            if (pagina < 0 || !rango.Incluye(pagina))
                continue;
        }
        const auto comando = linea.Lee();
        if (!comando)
            continue;
        const bool termina = std::holds_alternative<NuevaHoja>(*comando); // it belongs to the page that it ends
        if (!termina || (pagina >= 0 && rango.Incluye(pagina)))
            destino.Recibe(*comando);
        pagina += termina ? 1 : 0;
    }
}

/// The end of the last command of its pages.
qint64 InformeSpool::FinDe(const RangoPaginas& rango) const {
    if (!rango.usar)
        return std::numeric_limits<qint64>::max();
    qint64 fin = 0;
    for (int pagina = 0; pagina < Paginas(); ++pagina) {
        if (rango.Incluye(pagina) && static_cast<size_t>(pagina) < m_paginas.size())
            fin = std::max(fin, m_paginas[static_cast<size_t>(pagina)].hasta);
    }
    return fin;
}

int LeeNumeroHojas(const QString& ruta) {
    const std::unique_ptr<QIODevice> archivo = AbreArchivo(ruta);
    LineasTolerantes lineas(*archivo);
    while (lineas.Siguiente()) {
        const qsizetype apertura = lineas.Linea().indexOf("<!nHojas!>");
        if (apertura < 0)
            continue;
        const auto comando = LineaSpool(lineas.Linea().sliced(apertura)).Lee();
        return comando ? NumeroDeHojas(std::get<Etiqueta>(*comando).valor) : 0;
    }
    return 0;
}

std::optional<int> NumeroDeHojasDe(const QString& ruta) {
    try {
        return LeeNumeroHojas(ruta);
    } catch (const Error&) {
        return std::nullopt;
    }
}

std::optional<int> PaginasDe(const QString& ruta) {
    constexpr qint64 kCola = 65'536;
    try {
        const std::unique_ptr<QIODevice> archivo = AbreArchivo(ruta);
        qint64 desde = archivo->size();
        int ultima = 0;
        for (qint64 cola = kCola; ultima == 0 && desde > 0; cola *= 4) {
            desde = std::max<qint64>(archivo->size() - cola, 0);
            ultima = PaginaMasAlta(*archivo, desde);
        }
        return std::max(ultima, 1);
    } catch (const Error&) {
        return std::nullopt;
    }
}

Veredicto ValidaArchivoInforme(const QString& ruta) {
    if (ObjetoUtil::ExisteArchivo(ruta))
        return Veredicto::Bien();
    return Veredicto::Rechaza({Icono::Critico, u"Archivo Físico del Reporte no Existe"_s, u"Error al Imprimir"_s});
}

} // namespace xa518
