#include "launcher/PagRegistradas.h"

#include "launcher/Session.h"
#include "platform/Notices.h"
#include "ui_PagRegistradas.h"
#include "widgets/HourGlass.h"

namespace xa518 {

using namespace Qt::StringLiterals;

PagRegistradas::PagRegistradas(const EntornoPagina& entorno, VistasDeCambios cambios, QWidget* padre)
    : Pagina(entorno, padre), m_ui(std::make_unique<Ui::PagRegistradas>()), m_cambios(std::move(cambios)) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->GrdRegistradas);
    m_ui->GrdRegistradas->PonColumnas(
        ConFormulario({u"RUC"_s, u"Nombre o razón social"_s, u"Período"_s, u"Rectifica"_s, u"Grabada"_s, u"Estado"_s},
                      u"Formulario"_s));
    connect(m_ui->GrdRegistradas, &TablaFilas::Cambia, this, &PagRegistradas::ActualizaBotones);
    connect(m_ui->GrdRegistradas, &TablaFilas::Decidida, m_ui->CmdEnviar, &QPushButton::click);
    connect(m_ui->CmdEnviar, &QPushButton::clicked, this, Accion([this] { Envia(); }));
    connect(m_ui->CmdCambios, &QPushButton::clicked, this, Accion([this] { QueCambia(); }));
}

PagRegistradas::~PagRegistradas() = default;

void PagRegistradas::Carga(Base& base) {
    m_lista = ListaDeclaraciones(base, LaSesion().LosFormularios(), TipoDeLista::Registradas);
    m_ui->GrdRegistradas->Llena({Identidades(m_lista), [this](qsizetype fila) { return Celdas(m_lista.at(fila)); }});
    m_ui->LblRegistradas->setText(u"Declaraciones grabadas y todavía no enviadas: %1"_s.arg(m_lista.size()));
}

QStringList PagRegistradas::Celdas(const DeclaracionListada& declaracion) const {
    return ConFormulario({declaracion.clave.ruc.Texto(), declaracion.nombre, declaracion.clave.periodo.EnPantalla(),
                          declaracion.Rectifica(), declaracion.fechaProceso, declaracion.Estado()},
                         declaracion.clave.formulario);
}

void PagRegistradas::ActualizaBotones() {
    const int fila = m_ui->GrdRegistradas->Fila();
    Habilita(*m_ui->CmdEnviar, fila >= 0);
    m_ui->CmdCambios->setEnabled(fila >= 0 && m_cambios.contains(m_lista.at(fila).clave.formulario));
}

void PagRegistradas::QueCambia() {
    const DeclaracionListada declaracion = m_lista.at(m_ui->GrdRegistradas->Fila());
    const ClaveDeclaracion& clave = declaracion.clave;
    const Proceso proceso = LaSesion().AbreProceso();
    const std::optional<CopiaEnviada> copia = UltimaCopia(*proceso.baseDatos, clave);
    if (!copia)
        return LosAvisos().Muestra({Icono::Informacion,
                                    u"Nada se ha enviado del período %1 del RUC %2: no hay con qué comparar."_s.arg(
                                        clave.periodo.EnPantalla(), clave.ruc.Texto()),
                                    {}});
    m_cambios.value(clave.formulario)(*window(), proceso, *copia, declaracion.nombre);
}

/// What can't be sent is told before the question, and once more by the sending itself.
void PagRegistradas::Envia() {
    const DeclaracionListada declaracion = m_lista.at(m_ui->GrdRegistradas->Fila());
    const auto [veredicto, original] = LaSesion().RevisaEnvio(declaracion.clave);
    ResultadoEnvio resultado{.veredicto = veredicto};
    if (resultado.veredicto) {
        if (!Confirma(declaracion, original))
            return;
        const RelojDeArena reloj;
        resultado =
            LaSesion().Envia(declaracion.clave, original.isEmpty() ? OtroOriginal::Rechazado : OtroOriginal::Admitido);
    }
    if (!resultado.veredicto) {
        LosAvisos().Muestra(resultado.veredicto.Motivo());
        return;
    }
    Q_EMIT Cambio();
    LosAvisos().Muestra(
        {Icono::Informacion,
         u"La declaración pasó a las copias enviadas.\n\nCopia enviada: %1\nNúmero de control: %2\n\n%3"_s.arg(
             resultado.correl, resultado.control, kNadaSeTransmite),
         {}});
}

bool PagRegistradas::Confirma(const DeclaracionListada& declaracion, const QString& original) const {
    QString texto =
        u"¿Confirma el envío de la declaración?\n\nRUC: %1\nNombre: %2\nPeríodo: %3\n\nEnviarla es pasarla a"
        " las copias enviadas de este equipo, donde ya no se puede modificar. %4"_s.arg(
            declaracion.clave.ruc.Texto(), declaracion.nombre, declaracion.clave.periodo.EnPantalla(),
            kNadaSeTransmite);
    if (!original.isEmpty())
        texto += u"\n\nAtención: este mes ya fue enviado (copia %1), y esta declaración no dice que rectifique o"
                 " sustituya a otra. Si la envía así, queda como otro original del mismo mes."_s.arg(original);
    return LosAvisos().Pregunta({Icono::Pregunta, texto, {}}, Respuesta::No) == Respuesta::Si;
}

} // namespace xa518
