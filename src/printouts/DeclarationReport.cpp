#include "printouts/DeclarationReport.h"

#include "family/Process.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kInicioFilas = 1700;
constexpr int kFinDeLista = 11000;
constexpr int kTrasLista = 600;
constexpr int kDeterminacionSinLista = 2300;
constexpr qsizetype kLargoRazon = 32;

struct Rotulo {
    int x = 0;
    int y = 0;
    QStringView texto;
    int tamano = 8;
    bool negrita = false;
};

// "518" without its zero, and the blank line under the title: wanted, the sheet stays as it is known.
constexpr Rotulo kRotulos[] = {
    {380, 350, u"ZOLMA", 16, true},
    {360, 750, u"DECLARACION"},
    {610, 1100, u"PAGO"},
    {600, 1330, u"518", 12, true},
    {3200, 420, u"AGENTES DE PERCEPCION VENTAS INTERNAS", 9, true},
    {2650, 650, u" ", 7},
    {1750, 1170, u"RUC"},
    {1750, 1450, u"RAZON SOCIAL"},
    {6910, 1450, u"PERIODO"},
    {9080, 400, u"Copia para el", 9},
};

struct Marco {
    int x1;
    int y1;
    int x2;
    int y2;
};

constexpr Marco kMarcos[] = {
    {150, 300, 1700, 1640},   {1700, 300, 8500, 1100},  {1700, 1100, 3400, 1370},
    {3400, 1100, 8500, 1370}, {1700, 1370, 3400, 1640}, {3400, 1370, 8500, 1640},
    {6860, 1370, 7700, 1640}, {8500, 300, 11000, 1100}, {8500, 1100, 11000, 1640},
};

} // namespace

int InformeDeclaracion::TotalPaginas(const DatosDeclaracion& datos) {
    return datos.Clientes() / kClientesPorPagina + 1;
}

void InformeDeclaracion::Imprime() {
    IniciaPagina();
    const bool conLista = m_datos->Clientes() > 0;
    if (conLista)
        ListaClientes();
    if (m_posY > kFinDeLista) {
        m_escritor->NuevaPagina();
        IniciaPagina();
    }
    m_posY = conLista && m_posY > kInicioFilas ? m_posY + kTrasLista : kDeterminacionSinLista;
    Determinacion();
}

void InformeDeclaracion::IniciaPagina() {
    m_posY = kInicioFilas;
    for (const Rotulo& rotulo : kRotulos)
        m_escritor->ImprimePos(rotulo.x, rotulo.y, rotulo.texto.toString(), rotulo.tamano, rotulo.negrita);
    for (const Marco& marco : kMarcos)
        m_escritor->ImprimeCuadro(marco.x1, marco.y1, marco.x2, marco.y2);
    m_escritor->ImprimePos(3500, 1170, m_datos->clave.ruc.Texto(), 8, true);
    m_escritor->ImprimePos(3500, 1450, m_datos->nombreDeclarante.left(kLargoRazon));
    m_escritor->ImprimePos(7740, 1450, m_datos->clave.periodo.EnPantalla());
    m_escritor->ImprimePos(8750, 700,
                           u"Contribuyente (%1/%2)"_s.arg(m_escritor->PaginaActual()).arg(TotalPaginas(*m_datos)));
    if (m_datos->clave.enviada)
        TituloEnviada();
}

void InformeDeclaracion::TituloEnviada() {
    m_escritor->ImprimeCuadro(150, 1640, 2650, 1910);
    m_escritor->ImprimePos(300, 1720, u"NRO. CONTROL: "_s);
    m_escritor->ImprimePos(1800, 1720, m_datos->controlDecl);
    m_escritor->ImprimeCuadro(8500, 1640, 11000, 1910);
    m_escritor->ImprimePos(8620, 1720, u"NRO. ORDEN: "_s);
    m_escritor->ImprimePos(9800, 1720, m_datos->ordenDecl);
}

} // namespace xa518
