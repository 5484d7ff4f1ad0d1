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
    connect(m_ui->GrdDeclarantes, &TablaFilas::Decidida, this, Accion([this] { Modifica(); }));
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
    Muestra(propios);
}

/// The module keeps silent about a declarant of somebody else, so his row says it here.
void PagDeclarantes::Muestra(const QStringList& propios) {
    QList<FilaDeLista> filas;
    for (const Declarante& declarante : m_lista) {
        const bool propio = propios.contains(declarante.ruc.Texto());
        const QString usuario = propio ? declarante.usuario : u"%1 (otro usuario)"_s.arg(declarante.usuario);
        filas.append({declarante.ruc.Texto(), {declarante.ruc.Texto(), declarante.nombre, usuario}});
    }
    m_ui->GrdDeclarantes->Llena(filas);
    QString texto = u"Declarantes registrados: %1"_s.arg(m_lista.size());
    if (const qsizetype ajenos = m_lista.size() - propios.size(); ajenos > 0)
        texto += u". De otro usuario: %1, que el módulo no muestra a %2."_s.arg(ajenos).arg(LaSesion().Usuario());
    m_ui->LblDeclarantes->setText(texto);
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
void PagDeclarantes::Abre(const Declarante& inicial, VeredictoDeclarante (Declarantes::*escribe)(Declarante)) {
    const auto guarda = [this, escribe](const Declarante& declarante) -> VeredictoDeclarante {
        try {
            const std::unique_ptr<Base> base = LaSesion().Abre();
            Declarantes declarantes(*base);
            return (declarantes.*escribe)(declarante);
        } catch (const Error& error) {
            return Veredicto::Critico(TextoDeFalla(error));
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
    if (const Veredicto veredicto = Declarantes(*base).Elimina(declarante.ruc); !veredicto)
        LosAvisos().Muestra(veredicto.Motivo());
}

void PagDeclarantes::ActualizaBotones() {
    const bool hay = m_ui->GrdDeclarantes->Fila() >= 0;
    m_ui->CmdModificar->setEnabled(hay);
    m_ui->CmdEliminarDeclarante->setEnabled(hay);
}

} // namespace xa518
