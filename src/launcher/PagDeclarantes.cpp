#include "launcher/PagDeclarantes.h"

#include "launcher/FrmDeclarante.h"
#include "launcher/Session.h"
#include "platform/Notices.h"
#include "ui_PagDeclarantes.h"
#include "widgets/WidgetHelpers.h"

namespace xa518 {

using namespace Qt::StringLiterals;

PagDeclarantes::PagDeclarantes(const EntornoPagina& entorno, QWidget* padre)
    : Pagina(entorno, padre), m_ui(std::make_unique<Ui::PagDeclarantes>()) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->GrdDeclarantes);
    m_ui->GrdDeclarantes->PonColumnas({u"RUC"_s, u"Nombre o razón social"_s, u"Usuario"_s});
    connect(m_ui->GrdDeclarantes, &TablaFilas::Cambia, this, &PagDeclarantes::ActualizaBotones);
    connect(m_ui->GrdDeclarantes, &TablaFilas::Decidida, m_ui->CmdModificar, &QPushButton::click);
    connect(m_ui->CmdAgregar, &QPushButton::clicked, this, Accion([this] { Agrega(); }));
    connect(m_ui->CmdModificar, &QPushButton::clicked, this, Accion([this] { Modifica(); }));
    connect(m_ui->CmdEliminarDeclarante, &QPushButton::clicked, this, Accion([this] { Elimina(); }));
    ActualizaBotones();
}

PagDeclarantes::~PagDeclarantes() = default;

void PagDeclarantes::Carga(Base& base) {
    const Declarantes declarantes(base);
    QList<Declarante> lista = declarantes.Lista();
    const QStringList propios = declarantes.QueVe(LaSesion().Usuario());
    m_usuarios = declarantes.Usuarios();
    m_lista = std::move(lista); // with nothing left to fail between it and its rows
    m_propios = QSet<QString>(propios.cbegin(), propios.cend());
    Muestra();
}

void PagDeclarantes::Muestra() {
    QStringList numeros;
    for (const Declarante& declarante : m_lista)
        numeros.append(declarante.ruc.Texto());
    m_ui->GrdDeclarantes->Llena({numeros, [this](qsizetype fila) { return Celdas(m_lista.at(fila)); }});
    QString texto = u"Declarantes registrados: %1"_s.arg(m_lista.size());
    if (const qsizetype ajenos = m_lista.size() - m_propios.size(); ajenos > 0)
        texto += u". De otro usuario: %1, que el módulo no muestra a %2."_s.arg(ajenos).arg(LaSesion().Usuario());
    m_ui->LblDeclarantes->setText(texto);
}

/// The module keeps silent about a declarant of somebody else, so his row says it here.
QStringList PagDeclarantes::Celdas(const Declarante& declarante) const {
    const bool propio = m_propios.contains(declarante.ruc.Texto());
    const QString usuario = propio ? declarante.usuario : u"%1 (otro usuario)"_s.arg(declarante.usuario);
    return {declarante.ruc.Texto(), declarante.nombre, usuario};
}

void PagDeclarantes::Agrega() {
    Abre({.ruc = {}, .nombre = {}, .usuario = LaSesion().Usuario()}, &Declarantes::Agrega);
}

/// On a copy: the window reads its lists anew when it gets the focus, even with the dialog over it.
void PagDeclarantes::Modifica() {
    const Declarante declarante = m_lista.at(m_ui->GrdDeclarantes->Fila());
    Abre(declarante, &Declarantes::Modifica);
}

/// A failure while the dialog is open is a refusal like any other: what was typed stays.
void PagDeclarantes::Abre(const Declarante& inicial,
                          VeredictoDeclarante (Declarantes::*escribe)(Declarante, const Firma&)) {
    const auto guarda = [this, escribe](const Declarante& declarante) -> VeredictoDeclarante {
        try {
            const std::unique_ptr<Base> base = LaSesion().Abre();
            Declarantes declarantes(*base);
            return (declarantes.*escribe)(declarante, LaSesion().SuFirma());
        } catch (const Error& error) {
            return Veredicto::Critico(TextoDeFalla(error, LaSesion().RutaBase()));
        }
    };
    FrmDeclarante forma(LosAvisos(), inicial, m_usuarios, guarda, window());
    EjecutaSobre(*window(), forma);
    if (forma.Guardado())
        Carga(*LaSesion().Abre());
    m_ui->GrdDeclarantes->Elige(forma.Guardado().value_or(inicial.ruc).Texto());
}

void PagDeclarantes::Elimina() {
    const Declarante declarante = m_lista.at(m_ui->GrdDeclarantes->Fila());
    const Mensaje pregunta{
        Icono::Pregunta,
        u"¿Confirma que va a eliminar al declarante %1, %2?"_s.arg(declarante.ruc.Texto(), declarante.nombre),
        {}};
    if (LosAvisos().Pregunta(pregunta, Respuesta::No) == Respuesta::No)
        return;
    const std::unique_ptr<Base> base = LaSesion().Abre();
    if (const Veredicto veredicto = Declarantes(*base).Elimina(declarante.ruc, LaSesion().SuFirma()); !veredicto)
        LosAvisos().Muestra(veredicto.Motivo());
}

void PagDeclarantes::ActualizaBotones() {
    const bool hay = m_ui->GrdDeclarantes->Fila() >= 0;
    Habilita(*m_ui->CmdAgregar, true);
    Habilita(*m_ui->CmdModificar, hay);
    Habilita(*m_ui->CmdEliminarDeclarante, hay);
}

} // namespace xa518
