#include "launcher/PagInformes.h"

#include "launcher/Session.h"
#include "platform/Notices.h"
#include "reports/SharedReports.h"
#include "ui_PagInformes.h"

namespace xa518 {

using namespace Qt::StringLiterals;

PagInformes::PagInformes(const EntornoPagina& entorno, VistaDeInforme vista, QWidget* padre)
    : Pagina(entorno, padre), m_ui(std::make_unique<Ui::PagInformes>()), m_vista(std::move(vista)) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->GrdInformes);
    m_ui->GrdInformes->PonColumnas({u"Informe"_s, u"RUC"_s, u"Fecha"_s, u"Usuario"_s, u"Hojas"_s, u"Archivo"_s});
    connect(m_ui->GrdInformes, &TablaFilas::Cambia, this, &PagInformes::ActualizaBotones);
    connect(m_ui->GrdInformes, &TablaFilas::Decidida, m_ui->CmdVer, &QPushButton::click);
    connect(m_ui->CmdVer, &QPushButton::clicked, this, Accion([this] { Ve(); }));
    connect(m_ui->CmdEliminarInforme, &QPushButton::clicked, this, Accion([this] { Elimina(); }));
    ActualizaBotones();
}

PagInformes::~PagInformes() = default;

void PagInformes::Carga(Base& base) {
    m_lista = Informes(base, LaSesion().RutaInformes(), LaSesion().LosFormularios()).Lista();
    QStringList claves;
    for (const InformeRegistrado& informe : m_lista)
        claves.append(informe.codigo + u'|' + informe.secuencia);
    m_ui->GrdInformes->Llena({claves, [this](qsizetype fila) { return Celdas(m_lista.at(fila)); }});
    m_ui->LblInformes->setText(u"Informes registrados: %1"_s.arg(m_lista.size()));
}

QStringList PagInformes::Celdas(const InformeRegistrado& informe) const {
    const std::optional<int> hojas = informe.Hojas(LaSesion().RutaInformes());
    return {informe.titulo,
            informe.ruc,
            informe.FechaMostrada(),
            informe.usuario,
            hojas ? QString::number(*hojas) : u"Falta el archivo"_s,
            informe.archivo};
}

void PagInformes::Ve() {
    InformeRegistrado informe = m_lista.at(m_ui->GrdInformes->Fila()); // the list may be read anew under the view
    if (informe.hojasEnLaBase)
        informe.archivo = TextosDeInformes(*LaSesion().Abre()).Trae(LaSesion().RutaInformes(), informe.archivo);
    m_vista(*window(), LaSesion().RutaInformes(), informe);
}

void PagInformes::Elimina() {
    const InformeRegistrado informe = m_lista.at(m_ui->GrdInformes->Fila());
    const QString texto = u"¿Confirma que va a eliminar el informe «%1» del %2 y su archivo %3?"_s.arg(
        informe.titulo, informe.FechaMostrada(), informe.archivo);
    if (LosAvisos().Pregunta({Icono::Pregunta, texto, {}}, Respuesta::No) == Respuesta::No)
        return;
    const std::unique_ptr<Base> base = LaSesion().Abre();
    Informes(*base, LaSesion().RutaInformes(), LaSesion().LosFormularios()).Elimina(informe);
}

void PagInformes::ActualizaBotones() {
    const QString motivo = PorQueNoSeVe();
    m_ui->CmdVer->setEnabled(motivo.isEmpty());
    m_ui->CmdVer->setToolTip(motivo);
    Habilita(*m_ui->CmdEliminarInforme, m_ui->GrdInformes->Fila() >= 0);
}

QString PagInformes::PorQueNoSeVe() const {
    const int fila = m_ui->GrdInformes->Fila();
    if (fila < 0)
        return u"No hay informes."_s;
    if (!m_lista.at(fila).Hojas(LaSesion().RutaInformes()))
        return u"Falta el archivo de este informe."_s;
    return m_vista ? QString() : u"La vista preliminar no está instalada."_s;
}

} // namespace xa518
