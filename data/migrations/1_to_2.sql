-- From version 1 of the catalogue file to 2: the trash. What stands here never changes again; later
-- changes of these tables are steps of their own.

CREATE TABLE tblTrash(
    trashID INTEGER PRIMARY KEY AUTOINCREMENT,
    deletedOn TEXT NOT NULL COLLATE CATNC,
    kind INTEGER NOT NULL,
    ownerID INTEGER NOT NULL,
    name TEXT NOT NULL COLLATE CATNC,
    appID INTEGER,
    appName TEXT COLLATE CATNC,
    classID INTEGER,
    className TEXT COLLATE CATNC,
    namesakes INTEGER NOT NULL,
    classCount INTEGER NOT NULL,
    codeCount INTEGER NOT NULL,
    classText TEXT COLLATE CATNC
);

CREATE TABLE tblTrashApplication(
    trashID INTEGER NOT NULL,
    appID INTEGER NOT NULL,
    appName TEXT COLLATE CATNC,
    appPath TEXT COLLATE CATNC,
    appComment TEXT COLLATE CATNC,
    appVersion TEXT COLLATE CATNC,
    keywordID INTEGER
);

CREATE TABLE tblTrashClass(
    trashID INTEGER NOT NULL,
    classID INTEGER NOT NULL,
    className TEXT COLLATE CATNC,
    appID INTEGER,
    languageID INTEGER,
    classPathInApp TEXT COLLATE CATNC,
    classDI TEXT COLLATE CATNC,
    classComment TEXT COLLATE CATNC,
    keywordID INTEGER
);

CREATE TABLE tblTrashCode(
    trashID INTEGER NOT NULL,
    codeID INTEGER NOT NULL,
    codeName TEXT COLLATE CATNC,
    code TEXT COLLATE CATNC,
    codeComment TEXT COLLATE CATNC,
    classID INTEGER,
    keywordID INTEGER
);

CREATE TABLE tblTrashKeyword(
    trashID INTEGER NOT NULL,
    keywordID INTEGER NOT NULL,
    keyword TEXT COLLATE CATNC,
    separatorID INTEGER
);

CREATE TABLE tblTrashSearchWord(
    trashID INTEGER NOT NULL,
    searchWordID INTEGER NOT NULL,
    searchWord TEXT COLLATE CATNC
);

CREATE TABLE tblTrashKeywordWord(
    trashID INTEGER NOT NULL,
    keywordID INTEGER NOT NULL,
    searchWordID INTEGER NOT NULL
);

CREATE TABLE tblTrashAuthor(
    trashID INTEGER NOT NULL,
    authorID INTEGER NOT NULL,
    authorFName TEXT COLLATE CATNC,
    authorMName TEXT COLLATE CATNC,
    authorLName TEXT COLLATE CATNC
);

CREATE TABLE tblTrashAuthorLink(
    trashID INTEGER NOT NULL,
    ownerID INTEGER NOT NULL,
    authorID INTEGER NOT NULL,
    ownerTableID INTEGER NOT NULL
);

CREATE TABLE tblTrashDate(
    trashID INTEGER NOT NULL,
    dateID INTEGER NOT NULL,
    dDate TEXT COLLATE CATNC
);

CREATE TABLE tblTrashDateLink(
    trashID INTEGER NOT NULL,
    ownerID INTEGER NOT NULL,
    dateID INTEGER NOT NULL,
    ownerTableID INTEGER NOT NULL
);

CREATE TABLE tblTrashLanguage(
    trashID INTEGER NOT NULL,
    languageID INTEGER NOT NULL,
    language TEXT COLLATE CATNC,
    Status INTEGER
);

CREATE TABLE tblTrashCodeLanguage(
    trashID INTEGER NOT NULL,
    codeID INTEGER NOT NULL,
    languageID INTEGER NOT NULL
);

CREATE TABLE tblTrashFavorite(
    trashID INTEGER NOT NULL,
    appID INTEGER NOT NULL,
    classID INTEGER NOT NULL,
    codeID INTEGER
);

CREATE TABLE tblTrashSourceForm(
    trashID INTEGER NOT NULL,
    classID INTEGER NOT NULL,
    form TEXT COLLATE CATNC
);

CREATE TABLE tblTrashOverlong(
    trashID INTEGER NOT NULL,
    ownerID INTEGER NOT NULL,
    ownerTableID INTEGER NOT NULL,
    part TEXT COLLATE CATNC,
    text TEXT COLLATE CATNC
);

CREATE INDEX ixTrashApplication ON tblTrashApplication(trashID, appID);
CREATE INDEX ixTrashClass ON tblTrashClass(trashID, classID);
CREATE INDEX ixTrashCode ON tblTrashCode(trashID, codeID);
CREATE INDEX ixTrashKeyword ON tblTrashKeyword(trashID, keywordID);
CREATE INDEX ixTrashSearchWord ON tblTrashSearchWord(trashID, searchWordID);
CREATE INDEX ixTrashKeywordWord ON tblTrashKeywordWord(trashID, keywordID);
CREATE INDEX ixTrashAuthor ON tblTrashAuthor(trashID, authorID);
CREATE INDEX ixTrashAuthorLink ON tblTrashAuthorLink(trashID);
CREATE INDEX ixTrashDate ON tblTrashDate(trashID, dateID);
CREATE INDEX ixTrashDateLink ON tblTrashDateLink(trashID);
CREATE INDEX ixTrashLanguage ON tblTrashLanguage(trashID, languageID);
CREATE INDEX ixTrashCodeLanguage ON tblTrashCodeLanguage(trashID, codeID);
CREATE INDEX ixTrashFavorite ON tblTrashFavorite(trashID);
CREATE INDEX ixTrashSourceForm ON tblTrashSourceForm(trashID);
CREATE INDEX ixTrashOverlong ON tblTrashOverlong(trashID);

CREATE TRIGGER trgTrashDeleted AFTER DELETE ON tblTrash
BEGIN
    DELETE FROM tblTrashApplication WHERE trashID = old.trashID;
    DELETE FROM tblTrashClass WHERE trashID = old.trashID;
    DELETE FROM tblTrashCode WHERE trashID = old.trashID;
    DELETE FROM tblTrashKeyword WHERE trashID = old.trashID;
    DELETE FROM tblTrashSearchWord WHERE trashID = old.trashID;
    DELETE FROM tblTrashKeywordWord WHERE trashID = old.trashID;
    DELETE FROM tblTrashAuthor WHERE trashID = old.trashID;
    DELETE FROM tblTrashAuthorLink WHERE trashID = old.trashID;
    DELETE FROM tblTrashDate WHERE trashID = old.trashID;
    DELETE FROM tblTrashDateLink WHERE trashID = old.trashID;
    DELETE FROM tblTrashLanguage WHERE trashID = old.trashID;
    DELETE FROM tblTrashCodeLanguage WHERE trashID = old.trashID;
    DELETE FROM tblTrashFavorite WHERE trashID = old.trashID;
    DELETE FROM tblTrashSourceForm WHERE trashID = old.trashID;
    DELETE FROM tblTrashOverlong WHERE trashID = old.trashID;
END;

INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblTrash', NULL, '10'),
    ('tblTrashApplication', 'ixTrashApplication', '100 10 1'),
    ('tblTrashClass', 'ixTrashClass', '20000 2000 1'),
    ('tblTrashCode', 'ixTrashCode', '400000 40000 1'),
    ('tblTrashKeyword', 'ixTrashKeyword', '20000 2000 1'),
    ('tblTrashSearchWord', 'ixTrashSearchWord', '10000 1000 1'),
    ('tblTrashKeywordWord', 'ixTrashKeywordWord', '800000 80000 40'),
    ('tblTrashAuthor', 'ixTrashAuthor', '100 10 1'),
    ('tblTrashAuthorLink', 'ixTrashAuthorLink', '200000 20000'),
    ('tblTrashDate', 'ixTrashDate', '1000 100 1'),
    ('tblTrashDateLink', 'ixTrashDateLink', '200000 20000'),
    ('tblTrashLanguage', 'ixTrashLanguage', '100 10 1'),
    ('tblTrashCodeLanguage', 'ixTrashCodeLanguage', '400000 40000 1'),
    ('tblTrashFavorite', 'ixTrashFavorite', '100 10'),
    ('tblTrashSourceForm', 'ixTrashSourceForm', '20000 2000'),
    ('tblTrashOverlong', 'ixTrashOverlong', '100 10');
ANALYZE sqlite_schema;
