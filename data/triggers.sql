-- What follows a deleted or moved row by itself.

-- The IDs of keywords and search words are given out again (maximum plus one). Whatever still names
-- a deleted one would then belong to a stranger.
--
-- A procedure whose class is being emptied keeps the ID of its deleted keyword: taking it away
-- would write the row and its indexes anew just before they go. Should the deletion not come so
-- far, the ID is taken away when the class leaves the list tblClassesToEmpty, and before that when
-- a new keyword gets it.
--
-- A trigger that finds nothing to do is cheap where a condition says so: to begin an UPDATE the
-- library opens the table and all its indexes, three times the work of the look into one of them.
CREATE TRIGGER trgApplicationKeywordDeleted AFTER DELETE ON tblKeyword
WHEN EXISTS (SELECT 1 FROM tblApplication WHERE keywordID = old.keywordID)
BEGIN
    UPDATE tblApplication SET keywordID = NULL WHERE keywordID = old.keywordID;
END;

CREATE TRIGGER trgClassKeywordDeleted AFTER DELETE ON tblKeyword
WHEN EXISTS (SELECT 1 FROM tblClass WHERE keywordID = old.keywordID)
BEGIN
    UPDATE tblClass SET keywordID = NULL WHERE keywordID = old.keywordID;
END;

CREATE TRIGGER trgCodeKeywordDeleted AFTER DELETE ON tblKeyword
WHEN EXISTS (
    SELECT 1 FROM tblCode
    WHERE keywordID = old.keywordID
        AND classID NOT IN (SELECT classID FROM tblClassesToEmpty))
BEGIN
    UPDATE tblCode SET keywordID = NULL
    WHERE keywordID = old.keywordID
        AND classID NOT IN (SELECT classID FROM tblClassesToEmpty);
END;

CREATE TRIGGER trgKeywordLinksDeleted AFTER DELETE ON tblKeyword
WHEN EXISTS (SELECT 1 FROM tblKeyword_link_searchWord WHERE keywordID = old.keywordID)
BEGIN
    DELETE FROM tblKeyword_link_searchWord WHERE keywordID = old.keywordID;
END;

CREATE TRIGGER trgKeywordAdded AFTER INSERT ON tblKeyword
WHEN EXISTS (SELECT 1 FROM tblClassesToEmpty)
BEGIN
    UPDATE tblCode SET keywordID = NULL
    WHERE keywordID = new.keywordID
        AND classID IN (SELECT classID FROM tblClassesToEmpty);
END;

CREATE TRIGGER trgClassEmptied AFTER DELETE ON tblClassesToEmpty
BEGIN
    UPDATE tblCode SET keywordID = NULL
    WHERE classID = old.classID AND keywordID IS NOT NULL
        AND keywordID NOT IN (SELECT keywordID FROM tblKeyword);
END;

CREATE TRIGGER trgSearchWordDeleted AFTER DELETE ON tblSearchWord
BEGIN
    DELETE FROM tblKeyword_link_searchWord WHERE searchWordID = old.searchWordID;
END;

-- A bookmark names its whole path through the tree.
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

-- The side tables.
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

-- An entry of the trash with all that it holds.
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

-- The text index takes rows in by their IDs, in ascending order, so a new row needs no mark. One
-- that comes back from the trash has an old ID, and IDs of keywords are given out again.
CREATE TRIGGER trgApplicationTextAdded AFTER INSERT ON tblApplication
WHEN new.appID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 1)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (1, new.appID);
END;

CREATE TRIGGER trgApplicationTextChanged AFTER UPDATE OF appID, appName, appComment ON tblApplication
WHEN new.appID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 1)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (1, new.appID);
END;

CREATE TRIGGER trgClassTextAdded AFTER INSERT ON tblClass
WHEN new.classID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 2)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (2, new.classID);
END;

CREATE TRIGGER trgClassTextChanged AFTER UPDATE OF classID, className, classDI, classComment ON tblClass
WHEN new.classID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 2)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (2, new.classID);
END;

CREATE TRIGGER trgCodeTextAdded AFTER INSERT ON tblCode
WHEN new.codeID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 3)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (3, new.codeID);
END;

CREATE TRIGGER trgCodeTextChanged AFTER UPDATE OF codeID, codeName, code, codeComment ON tblCode
WHEN new.codeID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 3)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (3, new.codeID);
END;

-- The packed names. Renaming in another letter case counts too: capitals show where words start.
CREATE TRIGGER trgApplicationBlockFull AFTER INSERT ON tblApplication
WHEN new.appID % 1024 = 0 AND NOT EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 1 AND block = new.appID / 1024 - 1)
BEGIN
    INSERT INTO tblNameBlock(ownerTableID, block, entries, names)
    SELECT 1, new.appID / 1024 - 1,
        group_concat(substr('000' || (appID % 1024), -4)
            || substr('000' || length(CAST(appName AS BLOB)), -4), ''),
        group_concat(appName, '
')
    FROM tblApplication
    WHERE appID BETWEEN new.appID - 1024 AND new.appID - 1
    GROUP BY appID / 1024;
END;

CREATE TRIGGER trgApplicationNameAdded AFTER INSERT ON tblApplication
WHEN EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 1 AND block = new.appID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 1 AND block = new.appID / 1024;
END;

CREATE TRIGGER trgApplicationRenamed AFTER UPDATE OF appName ON tblApplication
WHEN new.appName <> old.appName COLLATE BINARY AND EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 1 AND block = new.appID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 1 AND block = new.appID / 1024;
END;

CREATE TRIGGER trgApplicationNameRemoved AFTER DELETE ON tblApplication
WHEN EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 1 AND block = old.appID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 1 AND block = old.appID / 1024;
END;

CREATE TRIGGER trgClassBlockFull AFTER INSERT ON tblClass
WHEN new.classID % 1024 = 0 AND NOT EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 2 AND block = new.classID / 1024 - 1)
BEGIN
    INSERT INTO tblNameBlock(ownerTableID, block, entries, names)
    SELECT 2, new.classID / 1024 - 1,
        group_concat(substr('000' || (classID % 1024), -4)
            || substr('000' || length(CAST(className AS BLOB)), -4), ''),
        group_concat(className, '
')
    FROM tblClass
    WHERE classID BETWEEN new.classID - 1024 AND new.classID - 1
    GROUP BY classID / 1024;
END;

CREATE TRIGGER trgClassNameAdded AFTER INSERT ON tblClass
WHEN EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 2 AND block = new.classID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 2 AND block = new.classID / 1024;
END;

CREATE TRIGGER trgClassRenamed AFTER UPDATE OF className ON tblClass
WHEN new.className <> old.className COLLATE BINARY AND EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 2 AND block = new.classID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 2 AND block = new.classID / 1024;
END;

CREATE TRIGGER trgClassNameRemoved AFTER DELETE ON tblClass
WHEN EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 2 AND block = old.classID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 2 AND block = old.classID / 1024;
END;

CREATE TRIGGER trgCodeBlockFull AFTER INSERT ON tblCode
WHEN new.codeID % 1024 = 0 AND NOT EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 3 AND block = new.codeID / 1024 - 1)
BEGIN
    INSERT INTO tblNameBlock(ownerTableID, block, entries, names)
    SELECT 3, new.codeID / 1024 - 1,
        group_concat(substr('000' || (codeID % 1024), -4)
            || substr('000' || length(CAST(codeName AS BLOB)), -4), ''),
        group_concat(codeName, '
')
    FROM tblCode
    WHERE codeID BETWEEN new.codeID - 1024 AND new.codeID - 1
    GROUP BY codeID / 1024;
END;

CREATE TRIGGER trgCodeNameAdded AFTER INSERT ON tblCode
WHEN EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 3 AND block = new.codeID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 3 AND block = new.codeID / 1024;
END;

CREATE TRIGGER trgCodeRenamed AFTER UPDATE OF codeName ON tblCode
WHEN new.codeName <> old.codeName COLLATE BINARY AND EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 3 AND block = new.codeID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 3 AND block = new.codeID / 1024;
END;

CREATE TRIGGER trgCodeNameRemoved AFTER DELETE ON tblCode
WHEN EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 3 AND block = old.codeID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 3 AND block = old.codeID / 1024;
END;

CREATE TRIGGER trgKeywordTextAdded AFTER INSERT ON tblKeyword
WHEN new.keywordID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 4)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (4, new.keywordID);
END;

CREATE TRIGGER trgKeywordTextChanged AFTER UPDATE OF keywordID, keyword ON tblKeyword
WHEN new.keywordID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 4)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (4, new.keywordID);
END;

-- A draft with its fields.
CREATE TRIGGER trgDraftDeleted AFTER DELETE ON tblDraft
BEGIN
    DELETE FROM tblDraftText WHERE draftID = old.draftID;
END;
