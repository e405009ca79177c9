-- A catalogue file of version 1 as it was, without its noise words and stored queries.

CREATE TABLE tblApplication(
    appID INTEGER PRIMARY KEY AUTOINCREMENT,
    appName TEXT NOT NULL COLLATE CATNC,
    appPath TEXT COLLATE CATNC,
    appComment TEXT COLLATE CATNC,
    appVersion TEXT COLLATE CATNC,
    keywordID INTEGER
);
CREATE TABLE tblClass(
    classID INTEGER PRIMARY KEY AUTOINCREMENT,
    className TEXT NOT NULL COLLATE CATNC,
    appID INTEGER NOT NULL DEFAULT 1,
    languageID INTEGER,
    classPathInApp TEXT COLLATE CATNC,
    classDI TEXT COLLATE CATNC,
    classComment TEXT COLLATE CATNC,
    keywordID INTEGER
);
CREATE TABLE tblCode(
    codeID INTEGER PRIMARY KEY AUTOINCREMENT,
    codeName TEXT NOT NULL COLLATE CATNC,
    code TEXT COLLATE CATNC,
    codeComment TEXT COLLATE CATNC,
    classID INTEGER NOT NULL DEFAULT 1,
    keywordID INTEGER
);
CREATE TABLE tblKeyword(
    keywordID INTEGER PRIMARY KEY,
    keyword TEXT COLLATE CATNC,
    separatorID INTEGER
);
CREATE TABLE tblKeywordTemp(
    keywordID INTEGER PRIMARY KEY,
    keyword TEXT COLLATE CATNC,
    separatorID INTEGER
);
CREATE TABLE tblSearchWord(
    searchWordID INTEGER PRIMARY KEY,
    searchWord TEXT NOT NULL COLLATE CATNC
);
CREATE TABLE tblKeyword_link_searchWord(
    keywordID INTEGER NOT NULL,
    searchWordID INTEGER NOT NULL
);
CREATE TABLE tblSeparator(
    separatorID INTEGER PRIMARY KEY,
    separator TEXT NOT NULL COLLATE CATNC,
    separatorDescription TEXT COLLATE CATNC
);
CREATE TABLE tblAuthor(
    authorID INTEGER PRIMARY KEY,
    authorFName TEXT COLLATE CATNC,
    authorMName TEXT COLLATE CATNC,
    authorLName TEXT COLLATE CATNC
);
CREATE TABLE tbl_Author_Link(
    ownerID INTEGER NOT NULL,
    authorID INTEGER NOT NULL,
    ownerTableID INTEGER NOT NULL
);
CREATE TABLE tblDate(
    dateID INTEGER PRIMARY KEY,
    dDate TEXT COLLATE CATNC
);
CREATE TABLE tbl_date_link(
    ownerID INTEGER NOT NULL,
    dateID INTEGER NOT NULL,
    ownerTableID INTEGER NOT NULL
);
CREATE TABLE tblLanguage(
    languageID INTEGER PRIMARY KEY,
    language TEXT NOT NULL COLLATE CATNC,
    Status INTEGER
);
CREATE TABLE tblCode_Link_Language(
    codeID INTEGER NOT NULL,
    languageID INTEGER NOT NULL
);
CREATE TABLE tblFavorite(
    appID INTEGER NOT NULL,
    classID INTEGER NOT NULL,
    codeID INTEGER
);
CREATE TABLE tblCommonWord(
    commonWord TEXT NOT NULL COLLATE CATNC
);
CREATE TABLE tblIDsToDelete(
    ID INTEGER,
    authorID INTEGER AS (ID),
    dateID INTEGER AS (ID)
);
CREATE TABLE tblWindowSize(
    w_hID INTEGER PRIMARY KEY,
    tWidth INTEGER,
    tHeight INTEGER,
    tLeft INTEGER,
    tTop INTEGER,
    leftChildIndex INTEGER,
    rightChildIndex INTEGER,
    wrap INTEGER,
    leftChildWidth INTEGER,
    rightChildWidth INTEGER,
    fContentPos TEXT DEFAULT 'left' COLLATE CATNC,
    fIndexPos TEXT DEFAULT 'left' COLLATE CATNC,
    fSearchPos TEXT DEFAULT 'right' COLLATE CATNC,
    fBookmarkPos TEXT DEFAULT 'left' COLLATE CATNC,
    lastCompactDay TEXT COLLATE CATNC
);
CREATE TABLE tblNamedQuery(
    name TEXT PRIMARY KEY COLLATE NOCASE,
    parameters TEXT NOT NULL COLLATE CATNC,
    body TEXT NOT NULL COLLATE CATNC
) WITHOUT ROWID;
CREATE TABLE tblSetting(
    name TEXT PRIMARY KEY COLLATE CATNC,
    value TEXT COLLATE CATNC
) WITHOUT ROWID;
CREATE TABLE tblSourceForm(
    classID INTEGER PRIMARY KEY,
    form TEXT NOT NULL COLLATE CATNC
);
CREATE TABLE tblOverlong(
    ownerID INTEGER NOT NULL,
    ownerTableID INTEGER NOT NULL,
    part TEXT NOT NULL COLLATE CATNC,
    text TEXT NOT NULL COLLATE CATNC
);
CREATE INDEX ixAppName ON tblApplication(appName);
CREATE INDEX ixAppPath ON tblApplication(appPath, appName);
CREATE INDEX ixAppKeyword ON tblApplication(keywordID) WHERE keywordID IS NOT NULL;
CREATE INDEX ixClassApp ON tblClass(appID, className, languageID, keywordID);
CREATE INDEX ixClassKeyword ON tblClass(keywordID, appID, languageID, className);
CREATE INDEX ixClassLanguage ON tblClass(languageID, appID, className, keywordID);
CREATE INDEX ixClassComment ON tblClass(classComment, appID, languageID, className)
    WHERE classComment IS NOT NULL;
CREATE INDEX ixCodeClass ON tblCode(classID, codeName, keywordID);
CREATE INDEX ixCodeKeyword ON tblCode(keywordID, classID, codeName);
CREATE INDEX ixCodeName ON tblCode(codeName, classID, keywordID);
CREATE INDEX ixCodeComment ON tblCode(codeComment, classID, codeName) WHERE codeComment IS NOT NULL;
CREATE INDEX ixSearchWord ON tblSearchWord(searchWord);
CREATE INDEX ixKeywordWords ON tblKeyword_link_searchWord(keywordID, searchWordID);
CREATE INDEX ixWordKeywords ON tblKeyword_link_searchWord(searchWordID, keywordID);
CREATE INDEX ixCommonWord ON tblCommonWord(commonWord);
CREATE INDEX ixAuthorName ON tblAuthor(authorLName, authorFName, authorMName);
CREATE INDEX ixAuthorOwners ON tbl_Author_Link(authorID, ownerTableID, ownerID);
CREATE INDEX ixOwnerAuthors ON tbl_Author_Link(ownerID, ownerTableID, authorID);
CREATE INDEX ixDate ON tblDate(dDate);
CREATE INDEX ixDateOwners ON tbl_date_link(dateID, ownerTableID, ownerID);
CREATE INDEX ixOwnerDates ON tbl_date_link(ownerID, ownerTableID, dateID);
CREATE INDEX ixCodeLanguages ON tblCode_Link_Language(codeID, languageID);
CREATE INDEX ixLanguageCodes ON tblCode_Link_Language(languageID, codeID);
CREATE INDEX ixFavoriteClass ON tblFavorite(classID);
CREATE INDEX ixFavoriteCode ON tblFavorite(codeID);
CREATE UNIQUE INDEX ixOverlong ON tblOverlong(ownerID, ownerTableID, part);
CREATE TRIGGER trgKeywordDeleted AFTER DELETE ON tblKeyword
BEGIN
    UPDATE tblApplication SET keywordID = NULL WHERE keywordID = old.keywordID;
    UPDATE tblClass SET keywordID = NULL WHERE keywordID = old.keywordID;
    UPDATE tblCode SET keywordID = NULL WHERE keywordID = old.keywordID;
    DELETE FROM tblKeyword_link_searchWord WHERE keywordID = old.keywordID;
END;
CREATE TRIGGER trgSearchWordDeleted AFTER DELETE ON tblSearchWord
BEGIN
    DELETE FROM tblKeyword_link_searchWord WHERE searchWordID = old.searchWordID;
END;
CREATE TRIGGER trgClassMoved AFTER UPDATE OF appID ON tblClass WHEN new.appID <> old.appID
BEGIN
    UPDATE tblFavorite SET appID = new.appID WHERE classID = new.classID;
END;
CREATE TRIGGER trgCodeMoved AFTER UPDATE OF classID ON tblCode WHEN new.classID <> old.classID
BEGIN
    UPDATE tblFavorite
    SET classID = new.classID,
        appID = coalesce((SELECT appID FROM tblClass WHERE classID = new.classID), appID)
    WHERE codeID = new.codeID;
END;
CREATE TRIGGER trgApplicationDeleted AFTER DELETE ON tblApplication
BEGIN
    DELETE FROM tblOverlong WHERE ownerID = old.appID AND ownerTableID = 1;
END;
CREATE TRIGGER trgClassDeleted AFTER DELETE ON tblClass
BEGIN
    DELETE FROM tblFavorite WHERE classID = old.classID;
    DELETE FROM tblSourceForm WHERE classID = old.classID;
    DELETE FROM tblOverlong WHERE ownerID = old.classID AND ownerTableID = 2;
END;
CREATE TRIGGER trgCodeDeleted AFTER DELETE ON tblCode
BEGIN
    DELETE FROM tblOverlong WHERE ownerID = old.codeID AND ownerTableID = 3;
END;
ANALYZE;
DELETE FROM sqlite_stat1;
INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblApplication', 'ixAppName', '2000 1'),
    ('tblApplication', 'ixAppPath', '2000 1 1'),
    ('tblApplication', 'ixAppKeyword', '600 1'),
    ('tblClass', 'ixClassApp', '50000 25 1 1 1'),
    ('tblClass', 'ixClassKeyword', '50000 6 6 6 1'),
    ('tblClass', 'ixClassLanguage', '50000 6000 3 1 1'),
    ('tblClass', 'ixClassComment', '20000 1 1 1 1'),
    ('tblCode', 'ixCodeClass', '1000000 20 1 1'),
    ('tblCode', 'ixCodeKeyword', '1000000 3 3 1'),
    ('tblCode', 'ixCodeName', '1000000 2 1 1'),
    ('tblCode', 'ixCodeComment', '40000 2 1 1'),
    ('tblKeyword', NULL, '40000'),
    ('tblSearchWord', 'ixSearchWord', '20000 1'),
    ('tblKeyword_link_searchWord', 'ixKeywordWords', '1600000 4 1'),
    ('tblKeyword_link_searchWord', 'ixWordKeywords', '1600000 13 1'),
    ('tblSeparator', NULL, '5'),
    ('tblAuthor', 'ixAuthorName', '100 1 1 1'),
    ('tbl_Author_Link', 'ixAuthorOwners', '400000 200 100 1'),
    ('tbl_Author_Link', 'ixOwnerAuthors', '400000 8 4 1'),
    ('tblDate', 'ixDate', '1000 1'),
    ('tbl_date_link', 'ixDateOwners', '500000 120 60 1'),
    ('tbl_date_link', 'ixOwnerDates', '500000 8 4 1'),
    ('tblLanguage', NULL, '20'),
    ('tblCode_Link_Language', 'ixCodeLanguages', '1000000 1 1'),
    ('tblCode_Link_Language', 'ixLanguageCodes', '1000000 100000 1'),
    ('tblFavorite', 'ixFavoriteClass', '100 2'),
    ('tblFavorite', 'ixFavoriteCode', '100 2'),
    ('tblCommonWord', 'ixCommonWord', '120 1'),
    ('tblWindowSize', NULL, '1'),
    ('tblNamedQuery', 'tblNamedQuery', '100 1'),
    ('tblSetting', 'tblSetting', '20 1'),
    ('tblSourceForm', NULL, '50000'),
    ('tblOverlong', 'ixOverlong', '100 1 1 1');
ANALYZE sqlite_schema;
INSERT INTO tblApplication(appID, appName) VALUES (1, 'Application Undefined');
INSERT INTO tblClass(classID, className, appID, languageID)
VALUES (1, 'Class/Module Undefined', 1, 1);
INSERT INTO tblWindowSize(w_hID, tWidth, tHeight, tLeft, tTop, leftChildIndex, rightChildIndex,
                          wrap, leftChildWidth, rightChildWidth)
VALUES (1, 15360, 11520, 600, 450, 1, 0, FALSE, 4500, 4500);
INSERT INTO tblSeparator(separatorID, separator, separatorDescription) VALUES
    (1, ' ', 'Blank'),
    (2, ',', 'Comma'),
    (3, ';', 'Semicolon'),
    (4, '/', 'Slash'),
    (5, '|', 'Vertical bar');
INSERT INTO tblLanguage(languageID, language, Status) VALUES
    (1, 'Visual Basic', TRUE),
    (2, 'Java', TRUE),
    (3, 'C#', TRUE),
    (4, 'C++', TRUE),
    (5, 'C', TRUE),
    (6, 'ASP', TRUE),
    (7, 'JavaScript', TRUE),
    (8, 'VBScript', TRUE),
    (9, 'HTML', TRUE),
    (10, 'C/C++ Header', TRUE),
    (11, 'C++ Header', TRUE);
PRAGMA user_version = 1;
