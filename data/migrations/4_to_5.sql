-- From version 4 of the catalogue file to 5. Each section has one change: its tables and indexes, as
-- they stand in schema.sql and indexes.sql, and its figures of statistics.sql.

-- The scratch list of a deletion with each ID once.

DROP TABLE tblIDsToDelete;

CREATE TABLE tblIDsToDelete(
    ID INTEGER PRIMARY KEY ON CONFLICT IGNORE,
    authorID INTEGER AS (ID),
    dateID INTEGER AS (ID)
);

-- Links of dates without numbers of their own, each once.

CREATE TABLE tblDateLinksBefore AS
SELECT ownerID, dateID, ownerTableID FROM tbl_date_link ORDER BY ownerID, dateID, ownerTableID;

DROP TABLE tbl_date_link;

CREATE TABLE tbl_date_link(
    ownerID INTEGER NOT NULL,
    dateID INTEGER NOT NULL,
    ownerTableID INTEGER NOT NULL,
    PRIMARY KEY (ownerID, dateID, ownerTableID) ON CONFLICT IGNORE
) WITHOUT ROWID;

INSERT INTO tbl_date_link SELECT ownerID, dateID, ownerTableID FROM tblDateLinksBefore;

DROP TABLE tblDateLinksBefore;

CREATE INDEX ixDateOwners ON tbl_date_link(dateID, ownerTableID, ownerID);

INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tbl_date_link', 'tbl_date_link', '500000 8 2 1'),
    ('tbl_date_link', 'ixDateOwners', '500000 120 60 1');

-- The languages of procedures without numbers of their own: each has one, the first of several.

CREATE TABLE tblCodeLanguagesBefore AS
SELECT codeID, languageID FROM tblCode_Link_Language
WHERE rowid IN (SELECT min(rowid) FROM tblCode_Link_Language GROUP BY codeID)
ORDER BY codeID;

DROP TABLE tblCode_Link_Language;

CREATE TABLE tblCode_Link_Language(
    codeID INTEGER NOT NULL PRIMARY KEY ON CONFLICT REPLACE,
    languageID INTEGER NOT NULL
) WITHOUT ROWID;

INSERT INTO tblCode_Link_Language SELECT codeID, languageID FROM tblCodeLanguagesBefore;

DROP TABLE tblCodeLanguagesBefore;

CREATE INDEX ixLanguageCodes ON tblCode_Link_Language(languageID);

INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblCode_Link_Language', 'tblCode_Link_Language', '1000000 1'),
    ('tblCode_Link_Language', 'ixLanguageCodes', '1000000 100000');

-- Of the comments of procedures, an index of those alone that the index of texts does not know.

DROP INDEX ixCodeComment;

CREATE INDEX ixShortComment ON tblCode(codeComment) WHERE length(codeComment) <= 2;

INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblCode', 'ixShortComment', '100 2');

-- The last line: the figures count from here on.
ANALYZE sqlite_schema;
