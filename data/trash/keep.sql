-- Copies an application, a class or a procedure into the trash before it is deleted, with all that
-- its deletion removes.
--
-- [kind] and [owner] say which it is, [deletedOn] is the time of day, [hasMarker] whether the
-- procedure has a marker in its class's text, [limit] how many characters of that its column takes,
-- and [entry] leads to the entry made here. What stands between two lines "-- LEVELS" and "-- END"
-- is for applications, classes and procedures alike: see store/trash_script.h.

INSERT INTO tblTrash(deletedOn, kind, ownerID, name, appID, appName, namesakes, classCount, codeCount)
SELECT [deletedOn], [kind], a.appID, a.appName, a.appID, a.appName,
    (SELECT count(*) FROM tblApplication x WHERE x.appName = a.appName AND x.appID <> a.appID),
    (SELECT count(*) FROM tblClass WHERE appID = a.appID),
    (SELECT count(*) FROM tblCode
     WHERE classID IN (SELECT classID FROM tblClass WHERE appID = a.appID))
FROM tblApplication a
WHERE [kind] = 1 AND a.appID = [owner];

INSERT INTO tblTrash(deletedOn, kind, ownerID, name, appID, appName, classID, className, namesakes,
    classCount, codeCount)
SELECT [deletedOn], [kind], c.classID, c.className, c.appID, a.appName, c.classID, c.className,
    (SELECT count(*) FROM tblClass x
     WHERE x.appID = c.appID AND x.className = c.className AND x.classID <> c.classID),
    1,
    (SELECT count(*) FROM tblCode WHERE classID = c.classID)
FROM tblClass c LEFT JOIN tblApplication a ON a.appID = c.appID
WHERE [kind] = 2 AND c.classID = [owner];

INSERT INTO tblTrash(deletedOn, kind, ownerID, name, appID, appName, classID, className, namesakes,
    classCount, codeCount, classText)
SELECT [deletedOn], [kind], d.codeID, d.codeName, c.appID, a.appName, d.classID, c.className,
    (SELECT count(*) FROM tblCode x
     WHERE x.classID = d.classID AND x.codeName = d.codeName AND x.codeID <> d.codeID),
    0,
    1,
    CASE WHEN [hasMarker] THEN c.classDI || CASE WHEN length(c.classDI) = [limit]
        THEN coalesce((SELECT o.text FROM tblOverlong o
            WHERE o.ownerID = c.classID AND o.ownerTableID = 2 AND o.part = 'classDI'), '')
        ELSE '' END END
FROM tblCode d LEFT JOIN tblClass c ON c.classID = d.classID
    LEFT JOIN tblApplication a ON a.appID = c.appID
WHERE [kind] = 3 AND d.codeID = [owner];

-- The tree.
INSERT INTO tblTrashApplication
SELECT [entry], appID, appName, appPath, appComment, appVersion, keywordID
FROM tblApplication
WHERE [kind] = 1 AND appID = [owner];

INSERT INTO tblTrashClass
SELECT [entry], classID, className, appID, languageID, classPathInApp, classDI, classComment,
    keywordID
FROM tblClass
WHERE [kind] = 1 AND appID = [owner];

INSERT INTO tblTrashClass
SELECT [entry], classID, className, appID, languageID, classPathInApp, classDI, classComment,
    keywordID
FROM tblClass
WHERE [kind] = 2 AND classID = [owner];

INSERT INTO tblTrashCode
SELECT [entry], codeID, codeName, code, codeComment, classID, keywordID
FROM tblCode
WHERE [kind] <> 3 AND classID IN (SELECT classID FROM tblTrashClass WHERE trashID = [entry]);

INSERT INTO tblTrashCode
SELECT [entry], codeID, codeName, code, codeComment, classID, keywordID
FROM tblCode
WHERE [kind] = 3 AND codeID = [owner];

-- Keywords, their search words, and the links between them.
INSERT INTO tblTrashKeyword
SELECT [entry], keywordID, keyword, separatorID
FROM tblKeyword
WHERE keywordID IN (
    SELECT keywordID FROM tblTrashApplication WHERE trashID = [entry]
    UNION ALL SELECT keywordID FROM tblTrashClass WHERE trashID = [entry]
    UNION ALL SELECT keywordID FROM tblTrashCode WHERE trashID = [entry]);

INSERT INTO tblTrashKeywordWord
SELECT [entry], keywordID, searchWordID
FROM tblKeyword_link_searchWord
WHERE keywordID IN (SELECT keywordID FROM tblTrashKeyword WHERE trashID = [entry]);

INSERT INTO tblTrashSearchWord
SELECT [entry], searchWordID, searchWord
FROM tblSearchWord
WHERE searchWordID IN (SELECT searchWordID FROM tblTrashKeywordWord WHERE trashID = [entry]);

-- What links and cut off texts say of an owner by its number and level, in the order in which authors
-- were linked.
-- LEVELS
INSERT INTO tblTrashAuthorLink
SELECT [entry], ownerID, authorID, ownerTableID
FROM tbl_Author_Link
WHERE ownerID IN (SELECT [levelID] FROM tblTrash[Level] WHERE trashID = [entry])
    AND ownerTableID = [levelNumber]
ORDER BY rowid;

INSERT INTO tblTrashDateLink
SELECT [entry], ownerID, dateID, ownerTableID
FROM tbl_date_link
WHERE ownerID IN (SELECT [levelID] FROM tblTrash[Level] WHERE trashID = [entry])
    AND ownerTableID = [levelNumber];

INSERT INTO tblTrashOverlong
SELECT [entry], ownerID, ownerTableID, part, text
FROM tblOverlong
WHERE ownerID IN (SELECT [levelID] FROM tblTrash[Level] WHERE trashID = [entry])
    AND ownerTableID = [levelNumber];
-- END

INSERT INTO tblTrashAuthor
SELECT [entry], authorID, authorFName, authorMName, authorLName
FROM tblAuthor
WHERE authorID IN (SELECT authorID FROM tblTrashAuthorLink WHERE trashID = [entry]);

INSERT INTO tblTrashDate
SELECT [entry], dateID, dDate
FROM tblDate
WHERE dateID IN (SELECT dateID FROM tblTrashDateLink WHERE trashID = [entry]);

-- Languages. An unused one may be gone when the entry comes back, or its ID be another's.
INSERT INTO tblTrashCodeLanguage
SELECT [entry], codeID, languageID
FROM tblCode_Link_Language
WHERE codeID IN (SELECT codeID FROM tblTrashCode WHERE trashID = [entry]);

INSERT INTO tblTrashLanguage
SELECT [entry], languageID, language, Status
FROM tblLanguage
WHERE languageID IN (
    SELECT languageID FROM tblTrashClass WHERE trashID = [entry]
    UNION ALL SELECT languageID FROM tblTrashCodeLanguage WHERE trashID = [entry]);

-- Bookmarks, those of classes and those of procedures.
INSERT INTO tblTrashFavorite
SELECT [entry], appID, classID, codeID
FROM tblFavorite
WHERE codeID IS NULL
    AND classID IN (SELECT classID FROM tblTrashClass WHERE trashID = [entry]);

INSERT INTO tblTrashFavorite
SELECT [entry], appID, classID, codeID
FROM tblFavorite
WHERE codeID IN (SELECT codeID FROM tblTrashCode WHERE trashID = [entry]);

-- What the class's file looked like.
INSERT INTO tblTrashSourceForm
SELECT [entry], classID, form
FROM tblSourceForm
WHERE classID IN (SELECT classID FROM tblTrashClass WHERE trashID = [entry]);
