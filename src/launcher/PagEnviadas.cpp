#include "launcher/PagEnviadas.h"

#include "launcher/Session.h"
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
}

PagEnviadas::~PagEnviadas() = default;

void PagEnviadas::Carga(Base& base) {
    m_lista = ListaDeclaraciones(base, LaSesion().LosFormularios(), TipoDeLista::Enviadas);
    m_ui->GrdEnviadas->Llena({Identidades(m_lista), [this](qsizetype fila) { return Celdas(m_lista.at(fila)); }});
    m_ui->LblEnviadas->setText(u"Declaraciones enviadas: %1"_s.arg(m_lista.size()));
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
