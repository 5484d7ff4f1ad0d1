#pragma once

#include "data/Engine.h"
#include "data/PostgresErrors.h"
#include "data/PostgresRows.h"

namespace xa518 {

/// PostgreSQL from version 13 on: a database of a server, which any number of programs use at once. The tables lie in
/// the schema `familia`, the work tables too as long as no other schema is named for them.
class MotorPostgres final : public Motor {
  public:
    MotorPostgres();
    ~MotorPostgres() override;

    void Abre(const LugarDeBase& lugar, ModoApertura modo) override;
    [[nodiscard]] QSqlDatabase Conexion() const override;
    [[nodiscard]] QString Traduce(const QString& sql) const override;
    [[nodiscard]] std::exception_ptr FallaDe(const QSqlError& error) const override;
    void PonVigia(Vigia vigia) override;
    [[nodiscard]] QStringList SqlComienza(Turno turno) const override;
    void PonMemoria(Memoria memoria) override { m_memoria = memoria; }
    [[nodiscard]] QString SqlVersion() const override;
    [[nodiscard]] QString SqlVersionDelEsquema() const override;
    [[nodiscard]] QString SqlPonVersionDelEsquema(int version) const override;
    QList<size_t> AgregaFilas(const FilasNuevas& filas) override;
    void CopiaConChecksum(Base& base, const CopiaDeFilas& copia, int primeros) override;
    [[nodiscard]] QString SqlColumnas(const QString& tabla) const override;
    [[nodiscard]] QString SqlTablas() const override;
    [[nodiscard]] QString NumeroDeFila(const QString& tabla) const override;
    [[nodiscard]] QString SqlEnOrdenDeAlta(const QString& tabla, const QString& condicion) const override;
    [[nodiscard]] QString SqlUnidas(const QStringList& columnas) const override;
    [[nodiscard]] QStringList Defectos() override { return {}; }
    void CopiaEn(const QString& archivo) override;
    void ExigeSola() override;

    [[nodiscard]] bool LeeDeUnaEnUna() const override { return false; }
    [[nodiscard]] bool SePrepara(const QString& sql) const override;
    [[nodiscard]] bool CorreSinPreparar(QSqlQuery& consulta, const QString& sql, const QVariantList& valores) override;
    [[nodiscard]] bool TraeMas(QSqlQuery& consulta) override;
    void Suelta(QSqlQuery& consulta) noexcept override;
    [[nodiscard]] std::optional<int> EjecutaConVigia(const QString& sql, const QVariantList& valores) override;
    void ExigeConfirmable() const override;
    [[nodiscard]] QString MarcaDeTransaccion() override;
    [[nodiscard]] bool QuedoTransaccion(const QString& marca) override;
    [[nodiscard]] bool EstaPerdida() const override;
    int Reconecta() override;
    [[nodiscard]] bool TienePuestos() const override { return true; }
    void PonTrabajo(const EsquemaDeTrabajo& trabajo) override;
    [[nodiscard]] bool SoloLectura() const override { return m_soloLectura; }

  private:
    /// By which the server knows a connection: the number alone comes back some day.
    struct SesionDelServidor {
        int pid = 0;
        QString desde;
    };

    [[nodiscard]] PGconn* Manija() const;
    void Conecta();
    void ExigeServidor() const;
    void ExigeReloj() const;
    void PreparaContenido(ModoApertura modo);
    [[nodiscard]] bool EsSuDueno() const;
    void Instala() const;
    void Viste();
    void PonCamino() const;
    void AcabaCon(const SesionDelServidor& anterior) const;
    [[nodiscard]] QString ConLiterales(const QString& sql, const QVariantList& valores) const;
    /// Waits for the end of what was sent, and asks the watch meanwhile.
    [[nodiscard]] ResultadoPg EsperaFin() const;
    [[nodiscard]] bool Sigue() const { return !m_vigia || m_vigia(m_filas); }
    [[nodiscard]] bool LeePorPartes(const QString& sql) const;

    QString m_nombre;
    LugarDeBase m_lugar;
    SesionDelServidor m_sesion;
    bool m_soloLectura = false;
    Parametros m_parametros;
    Memoria m_memoria = Memoria::Amplia;
    Vigia m_vigia;
    qint64 m_filas = 0;    ///< changed since the watch began
    qint64 m_lecturas = 0; ///< by portions, so far
};

} // namespace xa518
