#include "launcher/PagEnviadas.h"

#include "launcher/DeclarationList.h"
#include "ui_PagEnviadas.h"

namespace xa518 {

using namespace Qt::StringLiterals;

PagEnviadas::PagEnviadas(const EntornoPagina& entorno, QWidget* padre)
    : Pagina(entorno, padre), m_ui(std::make_unique<Ui::PagEnviadas>()) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->GrdEnviadas);
    m_ui->GrdEnviadas->PonColumnas({u"RUC"_s, u"Nombre o razón social"_s, u"Período"_s, u"Copia"_s, u"Rectifica"_s,
                                    u"N.º de control"_s, u"Fecha de envío"_s, u"Estado"_s, u"N.º de orden"_s});
}

PagEnviadas::~PagEnviadas() = default;

void PagEnviadas::Carga(Base& base) {
    QList<FilaDeLista> filas;
    for (const DeclaracionListada& declaracion : ListaDeclaraciones(base, true)) {
        const ClaveDeclaracion& clave = declaracion.clave;
        const QString orden = declaracion.orden.isEmpty() ? u"Por registrar"_s : declaracion.orden;
        filas.append(
            {clave.ruc.Texto() + u'|' + clave.periodo.Texto() + u'|' + clave.correl,
             {clave.ruc.Texto(), declaracion.nombre, clave.periodo.EnPantalla(), clave.correl, declaracion.Rectifica(),
              declaracion.control, declaracion.fechaEnvio, declaracion.Estado(), orden}});
    }
    m_ui->GrdEnviadas->Llena(filas);
    m_ui->LblEnviadas->setText(u"Declaraciones enviadas: %1"_s.arg(filas.size()));
}

} // namespace xa518
