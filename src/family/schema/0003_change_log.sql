-- Who did what: a row for each change of what is kept, in the order in which they were made. Nothing changes or removes
-- one. Texts of boxes are lines of "box=value"; Marca tells a row from every other, in whatever base.

CREATE TABLE BITACORA (
    Doc_id_d   TEXT COLLATE NOCASE NOT NULL,
    periodo    TEXT COLLATE NOCASE NOT NULL,
    Formulario TEXT COLLATE NOCASE NOT NULL,
    correl     TEXT COLLATE NOCASE,
    Momento    TEXT COLLATE NOCASE NOT NULL,
    Usuario    TEXT COLLATE NOCASE,
    Equipo     TEXT COLLATE NOCASE,
    Suceso     TEXT COLLATE NOCASE NOT NULL,
    Antes      TEXT COLLATE NOCASE,
    Despues    TEXT COLLATE NOCASE,
    Marca      TEXT COLLATE NOCASE NOT NULL,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, Marca)
) STRICT;
