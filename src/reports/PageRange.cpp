#include "reports/PageRange.h"

#include "values/Text.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHojasConRango = 16;
constexpr int kRetroceso = 8;

/// The leading digits: a blank or a point, which the fields let through, ends them, and none count as 0. Wanted:
/// the range begins at 1, so that 0 is refused with words.
int NumeroDePagina(const QString& texto) {
    constexpr int kTope = 1'000'000'000;
    qint64 pagina = 0;
    for (const QChar c : Recorta(texto)) {
        if (!EsDigito(c))
            break;
        pagina = std::min<qint64>(pagina * 10 + c.digitValue(), kTope);
    }
    return static_cast<int>(pagina);
}

} // namespace

ViaInforme ViaPara(int hojas) {
    return hojas < kHojasConRango ? ViaInforme::Directa : ViaInforme::ConRango;
}

VeredictoRango ValidaRango(const QString& desde, const QString& hasta, int total) {
    if (desde.isEmpty())
        return VeredictoRango::Critico(u"Ingrese página de inicio."_s, CampoRango::Desde);
    if (NumeroDePagina(desde) < 1)
        return VeredictoRango::Critico(u"Página inicial debe ser a partir de 1."_s, CampoRango::Desde);
    if (NumeroDePagina(desde) > total)
        return VeredictoRango::Critico(u"Página inicial no debe ser mayor a total de páginas del reporte."_s,
                                       CampoRango::Desde);
    if (hasta.isEmpty())
        return VeredictoRango::Critico(u"Ingrese página de Fin."_s, CampoRango::Hasta);
    if (NumeroDePagina(hasta) < NumeroDePagina(desde)) // said the wrong way around: wanted, known so
        return VeredictoRango::Critico(u"Página de Inicio debe ser mayor a página de Fin."_s, CampoRango::Hasta);
    return Veredicto::Bien();
}

RangoPaginas TomaRango(const QString& desde, const QString& hasta) {
    return {true, NumeroDePagina(desde), NumeroDePagina(hasta)};
}

bool EsTeclaDePagina(int tecla) {
    return (tecla >= '0' && tecla <= '9') || tecla == kRetroceso || tecla == '.' || tecla == ' ';
}

QString TituloPaginas(int hojas) {
    return QString::number(hojas) + u" páginas"_s;
}

QString TituloImpresion(int hojas) {
    return u"Impresión de %1 páginas"_s.arg(hojas);
}

QString CuantasPaginas(int paginas) {
    return paginas == 1 ? u"1 página"_s : u"%1 páginas"_s.arg(paginas);
}

QString TextoRango(const RangoPaginas& rango, int paginas) {
    if (!rango.Alcanza(paginas))
        return u"El reporte no llega a la página %1: tiene %2."_s.arg(rango.desde).arg(CuantasPaginas(paginas));
    return u"Se imprimirá de la página %1 a la %2."_s.arg(rango.desde).arg(std::min(rango.hasta, paginas));
}

} // namespace xa518
