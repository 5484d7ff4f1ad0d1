#include "launcher/PagPuestos.h"

#include "data/Base.h"
#include "launcher/Session.h"
#include "platform/Notices.h"
#include "ui_PagPuestos.h"
#include "values/Period.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString MomentoDe(const QDateTime& momento) {
    return momento.toString(u"dd/MM/yyyy HH:mm"_s);
}

QString EstadoDe(const Puesto& puesto) {
    if (puesto.vivo)
        return u"En uso"_s;
    return puesto.TieneAbierta() ? u"Abandonado, con datos sin grabar"_s : u"Libre"_s;
}

QString AbiertaEn(const Puesto& puesto) {
    if (!puesto.TieneAbierta())
        return {};
    const DeclaracionOcupada& abierta = puesto.abierta;
    return u"%1 de %2, RUC %3, desde el %4"_s.arg(abierta.formulario,
                                                  Periodo::DeTabla(abierta.periodo).value_or(Periodo()).EnPantalla(),
                                                  abierta.ruc, MomentoDe(puesto.abiertaDesde));
}

} // namespace

PagPuestos::PagPuestos(const EntornoPagina& entorno, QWidget* padre)
    : Pagina(entorno, padre), m_ui(std::make_unique<Ui::PagPuestos>()) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->GrdPuestos);
    m_ui->GrdPuestos->PonColumnas(
        {u"Usuario"_s, u"Equipo"_s, u"Programa"_s, u"Desde"_s, u"Estado"_s, u"Declaración abierta"_s});
    connect(m_ui->GrdPuestos, &TablaFilas::Cambia, this, &PagPuestos::ActualizaBotones);
    connect(m_ui->CmdQuitarPuesto, &QPushButton::clicked, this, Accion([this] { Quita(); }));
    ActualizaBotones();
}

PagPuestos::~PagPuestos() = default;

void PagPuestos::Carga(Base& base) {
    m_lista = base.LosPuestos() == nullptr ? QList<Puesto>() : base.LosPuestos()->Lista();
    QStringList esquemas;
    for (const Puesto& puesto : m_lista)
        esquemas.append(puesto.esquema);
    m_ui->GrdPuestos->Llena({esquemas, [this](qsizetype fila) { return Celdas(m_lista.at(fila)); }});
    const auto vivos = std::ranges::count_if(m_lista, &Puesto::vivo);
    m_ui->LblPuestos->setText(u"Puestos de trabajo: %1. En uso: %2."_s.arg(m_lista.size()).arg(vivos));
    ActualizaBotones();
}

QStringList PagPuestos::Celdas(const Puesto& puesto) {
    return {puesto.quien.usuario,    puesto.quien.equipo, puesto.quien.programa,
            MomentoDe(puesto.desde), EstadoDe(puesto),    AbiertaEn(puesto)};
}

void PagPuestos::ActualizaBotones() {
    const int fila = m_ui->GrdPuestos->Fila();
    Habilita(*m_ui->CmdQuitarPuesto, fila >= 0 && !m_lista.at(fila).vivo);
}

void PagPuestos::Quita() {
    const Puesto puesto = m_lista.at(m_ui->GrdPuestos->Fila()); // the list may be read anew under the question
    QString texto =
        u"¿Confirma que va a quitar el puesto de %1 en %2?"_s.arg(puesto.quien.usuario, puesto.quien.equipo);
    if (puesto.TieneAbierta())
        texto += u"\n\nSe pierde lo que quedó sin grabar de la declaración %1."_s.arg(AbiertaEn(puesto));
    if (LosAvisos().Pregunta({Icono::Pregunta, texto, {}}, Respuesta::No) == Respuesta::No)
        return;
    const std::unique_ptr<Base> base = LaSesion().Abre();
    if (base->LosPuestos() == nullptr || !base->LosPuestos()->Quita(puesto.esquema))
        LosAvisos().Muestra({Icono::Exclamacion,
                             u"No se quitó el puesto: alguien trabaja en él, o ya no está. La lista se ha"
                             " actualizado."_s,
                             {}});
}

} // namespace xa518
