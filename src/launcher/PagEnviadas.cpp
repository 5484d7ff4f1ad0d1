#include "launcher/PagEnviadas.h"

#include "family/StoredState.h"
#include "launcher/Session.h"
#include "platform/Notices.h"
#include "ui_PagEnviadas.h"

namespace xa518 {

using namespace Qt::StringLiterals;

PagEnviadas::PagEnviadas(const EntornoPagina& entorno, QWidget* padre)
    : Pagina(entorno, padre), m_ui(std::make_unique<Ui::PagEnviadas>()) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->GrdEnviadas);
    m_ui->GrdEnviadas->PonColumnas(
        ConFormulario({u"RUC"_s, u"Nombre o razón social"_s, u"Período"_s, u"Copia"_s, u"Rectifica"_s,
                       u"N.º de control"_s, u"Fecha de envío"_s, u"Estado"_s, u"N.º de orden"_s},
                      u"Formulario"_s));
    connect(m_ui->GrdEnviadas, &TablaFilas::Cambia, this,
            [this] { Habilita(*m_ui->CmdRectificar, m_ui->GrdEnviadas->Fila() >= 0); });
    connect(m_ui->CmdRectificar, &QPushButton::clicked, this, Accion([this] { PideRectificar(); }));
}

PagEnviadas::~PagEnviadas() = default;

void PagEnviadas::Carga(Base& base) {
    m_lista = ListaDeclaraciones(base, LaSesion().LosFormularios(), TipoDeLista::Enviadas);
    m_ui->GrdEnviadas->Llena({Identidades(m_lista), [this](qsizetype fila) { return Celdas(m_lista.at(fila)); }});
    m_ui->LblEnviadas->setText(u"Declaraciones enviadas: %1"_s.arg(m_lista.size()));
}

/// The month of one that is registered can't be begun anew.
void PagEnviadas::PideRectificar() {
    const ClaveDeclaracion copia = m_lista.at(m_ui->GrdEnviadas->Fila()).clave;
    ClaveDeclaracion registrada = copia;
    registrada.enviada = false;
    if (EstadoGuardado::De(*LaSesion().Abre(), registrada).Existe())
        return LosAvisos().Muestra(
            {Icono::Exclamacion,
             u"El período %1 del RUC %2 ya tiene una declaración registrada, que todavía no se envía. Modifíquela en el"
             " módulo, o elimínela allí antes de rectificar esta copia."_s.arg(copia.periodo.EnPantalla(),
                                                                               copia.ruc.Texto()),
             {}});
    Q_EMIT Rectifica(copia);
}

QStringList PagEnviadas::Celdas(const DeclaracionListada& declaracion) const {
    const ClaveDeclaracion& clave = declaracion.clave;
    const QString orden = declaracion.orden.isEmpty() ? u"Por registrar"_s : declaracion.orden;
    return ConFormulario({clave.ruc.Texto(), declaracion.nombre, clave.periodo.EnPantalla(), clave.correl,
                          declaracion.Rectifica(), declaracion.control, declaracion.fechaEnvio, declaracion.Estado(),
                          orden},
                         clave.formulario);
}

} // namespace xa518
