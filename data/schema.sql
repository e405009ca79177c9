-- The tables of a catalogue file.
--
-- The order of the columns is part of the contract: many INSERT statements of the program name no
-- columns. Every text column compares without regard to letter case (CATNC, the program's own
-- collation). Where a query reads little of a table with long texts, an index of indexes.sql holds
-- the columns that it needs.

-- AUTOINCREMENT in the three tables that assign their IDs themselves: an ID that has been deleted
-- must not come back, or a bookmark or a search result would suddenly mean something else. It also
-- makes the new row's ID the maximum of the column, which is how the program reads it back.
CREATE TABLE tblApplication(
    appID INTEGER PRIMARY KEY AUTOINCREMENT,
    appName TEXT NOT NULL COLLATE CATNC,
    appPath TEXT COLLATE CATNC,
    appComment TEXT COLLATE CATNC,
    appVersion TEXT COLLATE CATNC,
    keywordID INTEGER
);

-- classDI is the class's own text, in which a marker line stands for each procedure.
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

-- A spare copy of the layout of tblKeyword; stays empty.
CREATE TABLE tblKeywordTemp(
    keywordID INTEGER PRIMARY KEY,
    keyword TEXT COLLATE CATNC,
    separatorID INTEGER
);

CREATE TABLE tblSearchWord(
    searchWordID INTEGER PRIMARY KEY,
    searchWord TEXT NOT NULL COLLATE CATNC
);

-- A word is linked to a keyword once; to link it again changes nothing. Rows are kept in the order
-- of their key, without numbers of their own: of all that storing a procedure writes, the links of
-- its words are the most.
CREATE TABLE tblKeyword_link_searchWord(
    keywordID INTEGER NOT NULL,
    searchWordID INTEGER NOT NULL,
    PRIMARY KEY (keywordID, searchWordID) ON CONFLICT IGNORE
) WITHOUT ROWID;

CREATE TABLE tblSeparator(
    separatorID INTEGER PRIMARY KEY,
    separator TEXT NOT NULL COLLATE CATNC,
    separatorDescription TEXT COLLATE CATNC
);

-- An absent part of a name is the empty text.
CREATE TABLE tblAuthor(
    authorID INTEGER PRIMARY KEY,
    authorFName TEXT COLLATE CATNC,
    authorMName TEXT COLLATE CATNC,
    authorLName TEXT COLLATE CATNC
);

-- ownerTableID says what an ownerID is, here and in tbl_date_link: 1 an appID, 2 a classID, 3 a
-- codeID.
CREATE TABLE tbl_Author_Link(
    ownerID INTEGER NOT NULL,
    authorID INTEGER NOT NULL,
    ownerTableID INTEGER NOT NULL
);

-- dDate is 'yyyy-mm-dd', with ' hh:mm:ss' where there is a time of day: sorted as text, it is
-- sorted by time.
CREATE TABLE tblDate(
    dateID INTEGER PRIMARY KEY,
    dDate TEXT COLLATE CATNC
);

-- An owner has a date once; to link it again changes nothing. Dates are shown in their own order, so
-- the links need no numbers to tell theirs. The key has the columns in the table's order: where it does
-- not, the library's own check of a file takes the columns for each other.
CREATE TABLE tbl_date_link(
    ownerID INTEGER NOT NULL,
    dateID INTEGER NOT NULL,
    ownerTableID INTEGER NOT NULL,
    PRIMARY KEY (ownerID, dateID, ownerTableID) ON CONFLICT IGNORE
) WITHOUT ROWID;

CREATE TABLE tblLanguage(
    languageID INTEGER PRIMARY KEY,
    language TEXT NOT NULL COLLATE CATNC,
    Status INTEGER
);

-- A procedure has one language: the one that was said last.
CREATE TABLE tblCode_Link_Language(
    codeID INTEGER NOT NULL PRIMARY KEY ON CONFLICT REPLACE,
    languageID INTEGER NOT NULL
) WITHOUT ROWID;

-- A bookmarked class has no codeID.
CREATE TABLE tblFavorite(
    appID INTEGER NOT NULL,
    classID INTEGER NOT NULL,
    codeID INTEGER
);

CREATE TABLE tblCommonWord(
    commonWord TEXT NOT NULL COLLATE CATNC
);

-- The scratch list of a deletion. It has each ID once: the 400,000 links that go with a large
-- application lead to some thousand words. The statement that removes unused authors reads "DELETE FROM
-- tblAuthor WHERE authorID IN (SELECT authorID FROM tblIDsToDelete)". Without the two computed
-- columns authorID would be the author's own, the condition always true, and every author would go;
-- dates likewise.
CREATE TABLE tblIDsToDelete(
    ID INTEGER PRIMARY KEY ON CONFLICT IGNORE,
    authorID INTEGER AS (ID),
    dateID INTEGER AS (ID)
);

-- The one row is w_hID 1. The position texts have defaults because the row that a shut-down adds
-- does not name them.
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

-- The stored queries: see engine/named_queries.h. The engine itself looks a name up, in ASCII, so
-- this one column does without the collation of ours.
CREATE TABLE tblNamedQuery(
    name TEXT PRIMARY KEY COLLATE NOCASE,
    parameters TEXT NOT NULL COLLATE CATNC,
    body TEXT NOT NULL COLLATE CATNC
) WITHOUT ROWID;

-- Settings that have no column of their own.
CREATE TABLE tblSetting(
    name TEXT PRIMARY KEY COLLATE CATNC,
    value TEXT COLLATE CATNC
) WITHOUT ROWID;

-- What an imported file looked like on disk (encoding, line ends), so that export can write the
-- same bytes.
CREATE TABLE tblSourceForm(
    classID INTEGER PRIMARY KEY,
    form TEXT NOT NULL COLLATE CATNC
);

-- What was cut off a text that is longer than its column takes; `part` names that column.
CREATE TABLE tblOverlong(
    ownerID INTEGER NOT NULL,
    ownerTableID INTEGER NOT NULL,
    part TEXT NOT NULL COLLATE CATNC,
    text TEXT NOT NULL COLLATE CATNC
);

-- The trash. Before a deletion begins, what it is going to remove is copied here, under a trashID
-- of its own, so that it can be brought back. tblTrash tells the entries. The other tables hold the
-- rows of the tables whose names they bear, with their IDs as they were; trgTrashDeleted removes
-- them with their entry.
--
-- kind and ownerID say what was deleted, as ownerTableID and ownerID do elsewhere; the application
-- and the class are itself or what it was in. namesakes counts those of its name that were beside
-- it. classText is the text of a procedure's class, where the procedure has a marker in it.
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

-- The classes all of whose procedures are being deleted: see trgKeywordDeleted. Empty between
-- deletions.
CREATE TABLE tblClassesToEmpty(
    classID INTEGER PRIMARY KEY
);

-- The text index (engine/text_lookup.h). tblTextIndex has a row for each table that is indexed: its
-- numbers are 1 to 3 as elsewhere, and 4 for keywords. All of it is made of the texts and can be made again.
CREATE TABLE tblTextIndex(
    ownerTableID INTEGER PRIMARY KEY,
    indexedTo INTEGER NOT NULL,
    segments INTEGER NOT NULL
);

CREATE TABLE tblTextSegment(
    segmentID INTEGER PRIMARY KEY,
    ownerTableID INTEGER NOT NULL,
    state INTEGER NOT NULL,
    firstID INTEGER NOT NULL,
    rows INTEGER NOT NULL,
    bytes INTEGER NOT NULL
);

CREATE TABLE tblTextBlock(
    blockID INTEGER PRIMARY KEY,
    block BLOB NOT NULL
);

-- Rows whose texts were changed since they were indexed.
CREATE TABLE tblTextDirty(
    ownerTableID INTEGER NOT NULL,
    ownerID INTEGER NOT NULL,
    PRIMARY KEY (ownerTableID, ownerID)
) WITHOUT ROWID;

-- The names of the applications, classes and procedures once more, packed so that quick search can
-- look through all of them at a time. Block n of a level has the names of the IDs from n * 1024 on,
-- in their order: `entries` has for each one four digits for the ID's place in the block and four
-- for the name's length in bytes, `names` the names with a line break between. A block that is not
-- here has to be read from its table: triggers remove it when a row of it changes, and make it when
-- its last ID has been given.
--
-- The key stands in an index of its own: in a table that is its own index, each look for a block
-- would read through the names of those it passes.
CREATE TABLE tblNameBlock(
    ownerTableID INTEGER NOT NULL,
    block INTEGER NOT NULL,
    entries TEXT NOT NULL COLLATE CATNC,
    names TEXT NOT NULL COLLATE CATNC
);

-- What was typed into the editors of applications, classes and procedures and is not stored yet,
-- so that a crash does not take it. kind and ownerID are what is edited, as in tblTrash; ownerID is
-- 0 where it is new.
CREATE TABLE tblDraft(
    draftID INTEGER PRIMARY KEY AUTOINCREMENT,
    savedOn TEXT NOT NULL COLLATE CATNC,
    kind INTEGER NOT NULL,
    ownerID INTEGER NOT NULL,
    name TEXT NOT NULL COLLATE CATNC
);

-- Every field of an editor. `loaded` is what had been stored, where the field was changed.
CREATE TABLE tblDraftText(
    draftID INTEGER NOT NULL,
    field TEXT NOT NULL COLLATE CATNC,
    text TEXT NOT NULL COLLATE CATNC,
    loaded TEXT COLLATE CATNC
);
