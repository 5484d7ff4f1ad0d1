-- The tables of form 0518: clients, perception vouchers, cash-sale vouchers and the payment vouchers behind the first,
-- each registered, sent (H) and at work (TMP). A work table holds the one open declaration and so carries no
-- declaration key. The number of a sent copy, correl, stands right behind the key.
-- A work row of an ordinary perception voucher has the empty text in tip_cp, never null: the save tells the kinds apart
-- by it.

CREATE TABLE F518PCAB (
    tip_doc_d      INTEGER NOT NULL,
    Doc_id_d       TEXT COLLATE NOCASE NOT NULL,
    periodo        TEXT COLLATE NOCASE NOT NULL,
    Formulario     TEXT COLLATE NOCASE NOT NULL,
    tip_doc_per    INTEGER NOT NULL,
    num_doc_per    TEXT COLLATE NOCASE NOT NULL,
    des_razon      TEXT COLLATE NOCASE,
    des_apellido_p TEXT COLLATE NOCASE,
    des_apellido_m TEXT COLLATE NOCASE,
    des_nombres    TEXT COLLATE NOCASE,
    ctd_docs       INTEGER,
    mto_base_p     TEXT COLLATE NOCASE,
    mto_imp_p      TEXT COLLATE NOCASE,
    ind_ruc        INTEGER,
    cNumero        TEXT COLLATE NOCASE,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, tip_doc_d, tip_doc_per, num_doc_per)
) STRICT;

CREATE TABLE HF518PCAB (
    tip_doc_d      INTEGER NOT NULL,
    Doc_id_d       TEXT COLLATE NOCASE NOT NULL,
    periodo        TEXT COLLATE NOCASE NOT NULL,
    Formulario     TEXT COLLATE NOCASE NOT NULL,
    correl         TEXT COLLATE NOCASE NOT NULL,
    tip_doc_per    INTEGER NOT NULL,
    num_doc_per    TEXT COLLATE NOCASE NOT NULL,
    des_razon      TEXT COLLATE NOCASE,
    des_apellido_p TEXT COLLATE NOCASE,
    des_apellido_m TEXT COLLATE NOCASE,
    des_nombres    TEXT COLLATE NOCASE,
    ctd_docs       INTEGER,
    mto_base_p     TEXT COLLATE NOCASE,
    mto_imp_p      TEXT COLLATE NOCASE,
    ind_ruc        INTEGER,
    cNumero        TEXT COLLATE NOCASE,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, correl, tip_doc_d, tip_doc_per, num_doc_per)
) STRICT;

CREATE TABLE TMPF518PCAB (
    tip_doc_per    INTEGER NOT NULL,
    num_doc_per    TEXT COLLATE NOCASE NOT NULL,
    des_razon      TEXT COLLATE NOCASE,
    des_apellido_p TEXT COLLATE NOCASE,
    des_apellido_m TEXT COLLATE NOCASE,
    des_nombres    TEXT COLLATE NOCASE,
    ctd_docs       TEXT COLLATE NOCASE,
    mto_base_p     TEXT COLLATE NOCASE,
    mto_imp_p      TEXT COLLATE NOCASE,
    ind_ruc        INTEGER,
    PRIMARY KEY (tip_doc_per, num_doc_per)
) STRICT;

CREATE TABLE F518PDET (
    tip_doc_d      INTEGER NOT NULL,
    Doc_id_d       TEXT COLLATE NOCASE NOT NULL,
    periodo        TEXT COLLATE NOCASE NOT NULL,
    Formulario     TEXT COLLATE NOCASE NOT NULL,
    tip_doc_per    INTEGER NOT NULL,
    num_doc_per    TEXT COLLATE NOCASE NOT NULL,
    num_serie_cp   TEXT COLLATE NOCASE NOT NULL,
    num_cp         TEXT COLLATE NOCASE NOT NULL,
    cp_fact        TEXT COLLATE NOCASE,
    lista_clie     TEXT COLLATE NOCASE,
    med_pago       TEXT COLLATE NOCASE,
    fec_emision_cp TEXT COLLATE NOCASE,
    mto_base_p     TEXT COLLATE NOCASE,
    mto_imp_p      TEXT COLLATE NOCASE,
    por_tasa_p     TEXT COLLATE NOCASE,
    cNumero        TEXT COLLATE NOCASE,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, tip_doc_d, tip_doc_per, num_doc_per, num_serie_cp, num_cp)
) STRICT;

CREATE TABLE HF518PDET (
    tip_doc_d      INTEGER NOT NULL,
    Doc_id_d       TEXT COLLATE NOCASE NOT NULL,
    periodo        TEXT COLLATE NOCASE NOT NULL,
    Formulario     TEXT COLLATE NOCASE NOT NULL,
    correl         TEXT COLLATE NOCASE NOT NULL,
    tip_doc_per    INTEGER NOT NULL,
    num_doc_per    TEXT COLLATE NOCASE NOT NULL,
    num_serie_cp   TEXT COLLATE NOCASE NOT NULL,
    num_cp         TEXT COLLATE NOCASE NOT NULL,
    cp_fact        TEXT COLLATE NOCASE,
    lista_clie     TEXT COLLATE NOCASE,
    med_pago       TEXT COLLATE NOCASE,
    fec_emision_cp TEXT COLLATE NOCASE,
    mto_base_p     TEXT COLLATE NOCASE,
    mto_imp_p      TEXT COLLATE NOCASE,
    por_tasa_p     TEXT COLLATE NOCASE,
    cNumero        TEXT COLLATE NOCASE,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, correl, tip_doc_d, tip_doc_per, num_doc_per, num_serie_cp, num_cp)
) STRICT;

CREATE TABLE F518PDETVC (
    tip_doc_d      INTEGER NOT NULL,
    Doc_id_d       TEXT COLLATE NOCASE NOT NULL,
    periodo        TEXT COLLATE NOCASE NOT NULL,
    Formulario     TEXT COLLATE NOCASE NOT NULL,
    tip_doc_per    INTEGER NOT NULL,
    num_doc_per    TEXT COLLATE NOCASE NOT NULL,
    num_serie_cp   TEXT COLLATE NOCASE NOT NULL,
    num_cp         TEXT COLLATE NOCASE NOT NULL,
    tip_cp         TEXT COLLATE NOCASE NOT NULL,
    cp_fact        TEXT COLLATE NOCASE,
    lista_clie     TEXT COLLATE NOCASE,
    med_pago       TEXT COLLATE NOCASE,
    fec_emision_cp TEXT COLLATE NOCASE,
    mto_base_p     TEXT COLLATE NOCASE,
    mto_imp_p      TEXT COLLATE NOCASE,
    por_tasa_p     TEXT COLLATE NOCASE,
    cNumero        TEXT COLLATE NOCASE,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, tip_doc_d, tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_cp)
) STRICT;

CREATE TABLE HF518PDETVC (
    tip_doc_d      INTEGER NOT NULL,
    Doc_id_d       TEXT COLLATE NOCASE NOT NULL,
    periodo        TEXT COLLATE NOCASE NOT NULL,
    Formulario     TEXT COLLATE NOCASE NOT NULL,
    correl         TEXT COLLATE NOCASE NOT NULL,
    tip_doc_per    INTEGER NOT NULL,
    num_doc_per    TEXT COLLATE NOCASE NOT NULL,
    num_serie_cp   TEXT COLLATE NOCASE NOT NULL,
    num_cp         TEXT COLLATE NOCASE NOT NULL,
    tip_cp         TEXT COLLATE NOCASE NOT NULL,
    cp_fact        TEXT COLLATE NOCASE,
    lista_clie     TEXT COLLATE NOCASE,
    med_pago       TEXT COLLATE NOCASE,
    fec_emision_cp TEXT COLLATE NOCASE,
    mto_base_p     TEXT COLLATE NOCASE,
    mto_imp_p      TEXT COLLATE NOCASE,
    por_tasa_p     TEXT COLLATE NOCASE,
    cNumero        TEXT COLLATE NOCASE,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, correl, tip_doc_d, tip_doc_per, num_doc_per, num_serie_cp, num_cp,
                 tip_cp)
) STRICT;

CREATE TABLE TMPF518PDET (
    tip_doc_per    INTEGER NOT NULL,
    num_doc_per    TEXT COLLATE NOCASE NOT NULL,
    num_serie_cp   TEXT COLLATE NOCASE NOT NULL,
    num_cp         TEXT COLLATE NOCASE NOT NULL,
    tip_cp         TEXT COLLATE NOCASE NOT NULL,
    cp_fact        TEXT COLLATE NOCASE,
    lista_clie     TEXT COLLATE NOCASE,
    med_pago       TEXT COLLATE NOCASE,
    fec_emision_cp TEXT COLLATE NOCASE,
    mto_base_p     TEXT COLLATE NOCASE,
    mto_imp_p      TEXT COLLATE NOCASE,
    por_tasa_p     TEXT COLLATE NOCASE,
    PRIMARY KEY (tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_cp)
) STRICT;

CREATE TABLE F518PDETCP (
    tip_doc_d       INTEGER NOT NULL,
    Doc_id_d        TEXT COLLATE NOCASE NOT NULL,
    periodo         TEXT COLLATE NOCASE NOT NULL,
    Formulario      TEXT COLLATE NOCASE NOT NULL,
    tip_doc_per     INTEGER NOT NULL,
    num_doc_per     TEXT COLLATE NOCASE NOT NULL,
    num_serie_cp    TEXT COLLATE NOCASE NOT NULL,
    num_cp          TEXT COLLATE NOCASE NOT NULL,
    tip_doc_detcp   TEXT COLLATE NOCASE NOT NULL,
    num_serie_detcp TEXT COLLATE NOCASE NOT NULL,
    num_detcp       TEXT COLLATE NOCASE NOT NULL,
    fec_emis_detcp  TEXT COLLATE NOCASE,
    mto_detcp       TEXT COLLATE NOCASE,
    cNumero         TEXT COLLATE NOCASE,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, tip_doc_d, tip_doc_per, num_doc_per, num_serie_cp, num_cp,
                 tip_doc_detcp, num_serie_detcp, num_detcp)
) STRICT;

CREATE TABLE HF518PDETCP (
    tip_doc_d       INTEGER NOT NULL,
    Doc_id_d        TEXT COLLATE NOCASE NOT NULL,
    periodo         TEXT COLLATE NOCASE NOT NULL,
    Formulario      TEXT COLLATE NOCASE NOT NULL,
    correl          TEXT COLLATE NOCASE NOT NULL,
    tip_doc_per     INTEGER NOT NULL,
    num_doc_per     TEXT COLLATE NOCASE NOT NULL,
    num_serie_cp    TEXT COLLATE NOCASE NOT NULL,
    num_cp          TEXT COLLATE NOCASE NOT NULL,
    tip_doc_detcp   TEXT COLLATE NOCASE NOT NULL,
    num_serie_detcp TEXT COLLATE NOCASE NOT NULL,
    num_detcp       TEXT COLLATE NOCASE NOT NULL,
    fec_emis_detcp  TEXT COLLATE NOCASE,
    mto_detcp       TEXT COLLATE NOCASE,
    cNumero         TEXT COLLATE NOCASE,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, correl, tip_doc_d, tip_doc_per, num_doc_per, num_serie_cp, num_cp,
                 tip_doc_detcp, num_serie_detcp, num_detcp)
) STRICT;

CREATE TABLE TMPF518PDETCP (
    tip_doc_per     INTEGER NOT NULL,
    num_doc_per     TEXT COLLATE NOCASE NOT NULL,
    num_serie_cp    TEXT COLLATE NOCASE NOT NULL,
    num_cp          TEXT COLLATE NOCASE NOT NULL,
    tip_doc_detcp   TEXT COLLATE NOCASE NOT NULL,
    num_serie_detcp TEXT COLLATE NOCASE NOT NULL,
    num_detcp       TEXT COLLATE NOCASE NOT NULL,
    fec_emis_detcp  TEXT COLLATE NOCASE,
    mto_detcp       TEXT COLLATE NOCASE,
    PRIMARY KEY (tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_doc_detcp, num_serie_detcp, num_detcp)
) STRICT;
