-- Brings an entry of the trash back.
--
-- [entry] is its trashID. The scratch tables tblBack... of store/trash_ids.h say under which new ID
-- the row of an old ID comes back, and which rows are there already, because their deletion was cut
-- short or they are what takes the entry in: these stay as they are and only get back what they
-- lack. What stands between two lines "-- LEVELS" and "-- END" is for applications, classes and
-- procedures alike: see store/trash_script.h.

-- What owners share.
INSERT INTO tblLanguage(languageID, language, Status)
SELECT m.new, t.language, t.Status
FROM tblTrashLanguage t CROSS JOIN tblBackLanguage m ON m.old = t.languageID
WHERE t.trashID = [entry] AND NOT m.isThere;

INSERT INTO tblSearchWord(searchWordID, searchWord)
SELECT m.new, t.searchWord
FROM tblTrashSearchWord t CROSS JOIN tblBackSearchWord m ON m.old = t.searchWordID
WHERE t.trashID = [entry] AND NOT m.isThere;

INSERT INTO tblAuthor(authorID, authorFName, authorMName, authorLName)
SELECT m.new, t.authorFName, t.authorMName, t.authorLName
FROM tblTrashAuthor t CROSS JOIN tblBackAuthor m ON m.old = t.authorID
WHERE t.trashID = [entry] AND NOT m.isThere;

INSERT INTO tblDate(dateID, dDate)
SELECT m.new, t.dDate
FROM tblTrashDate t CROSS JOIN tblBackDate m ON m.old = t.dateID
WHERE t.trashID = [entry] AND NOT m.isThere;

INSERT INTO tblKeyword(keywordID, keyword, separatorID)
SELECT m.new, t.keyword, t.separatorID
FROM tblTrashKeyword t CROSS JOIN tblBackKeyword m ON m.old = t.keywordID
WHERE t.trashID = [entry] AND NOT m.isThere;

-- The tree.
INSERT INTO tblApplication(appID, appName, appPath, appComment, appVersion, keywordID)
SELECT m.new, t.appName, t.appPath, t.appComment, t.appVersion,
    (SELECT k.new FROM tblBackKeyword k WHERE k.old = t.keywordID)
FROM tblTrashApplication t CROSS JOIN tblBackApplication m ON m.old = t.appID
WHERE t.trashID = [entry] AND NOT m.isThere;

INSERT INTO tblClass(classID, className, appID, languageID, classPathInApp, classDI, classComment,
    keywordID)
SELECT m.new, t.className,
    coalesce((SELECT a.new FROM tblBackApplication a WHERE a.old = t.appID), 1),
    coalesce((SELECT l.new FROM tblBackLanguage l WHERE l.old = t.languageID), t.languageID),
    t.classPathInApp, t.classDI, t.classComment,
    (SELECT k.new FROM tblBackKeyword k WHERE k.old = t.keywordID)
FROM tblTrashClass t CROSS JOIN tblBackClass m ON m.old = t.classID
WHERE t.trashID = [entry] AND NOT m.isThere;

INSERT INTO tblCode(codeID, codeName, code, codeComment, classID, keywordID)
SELECT m.new, t.codeName, t.code, t.codeComment,
    coalesce((SELECT c.new FROM tblBackClass c WHERE c.old = t.classID), 1),
    (SELECT k.new FROM tblBackKeyword k WHERE k.old = t.keywordID)
FROM tblTrashCode t CROSS JOIN tblBackCode m ON m.old = t.codeID
WHERE t.trashID = [entry] AND NOT m.isThere;

-- An application that is there may be one that was made anew for a class of it.
UPDATE tblApplication
SET appPath = coalesce(tblApplication.appPath, r.appPath),
    appComment = coalesce(tblApplication.appComment, r.appComment),
    appVersion = coalesce(tblApplication.appVersion, r.appVersion)
FROM (
    SELECT m.new AS id, t.appPath, t.appComment, t.appVersion
    FROM tblTrashApplication t CROSS JOIN tblBackApplication m ON m.old = t.appID
    WHERE t.trashID = [entry] AND m.isThere AND m.new > 1) AS r
WHERE tblApplication.appID = r.id;

-- The keywords of those that are there and have none now. The "+" keeps the search from beginning
-- with everything that has no keywords.
-- LEVELS
UPDATE tbl[Level]
SET keywordID = (
    SELECT k.new
    FROM tblTrash[Level] t CROSS JOIN tblBackKeyword k ON k.old = t.keywordID
    WHERE t.trashID = [entry] AND t.[levelID] = tbl[Level].[levelID])
WHERE [levelID] IN (SELECT new FROM tblBack[Level] WHERE isThere AND new = old)
    AND +keywordID IS NULL;
-- END

-- A keyword whose owner has another one by now is nobody's.
DELETE FROM tblKeyword
WHERE keywordID IN (SELECT new FROM tblBackKeyword WHERE NOT isThere)
    AND NOT EXISTS (SELECT 1 FROM tblCode o WHERE o.keywordID = tblKeyword.keywordID)
    AND NOT EXISTS (SELECT 1 FROM tblClass o WHERE o.keywordID = tblKeyword.keywordID)
    AND NOT EXISTS (SELECT 1 FROM tblApplication o WHERE o.keywordID = tblKeyword.keywordID);

INSERT INTO tblKeyword_link_searchWord(keywordID, searchWordID)
SELECT k.new, w.new
FROM tblTrashKeywordWord t CROSS JOIN tblBackKeyword k ON k.old = t.keywordID
    CROSS JOIN tblBackSearchWord w ON w.old = t.searchWordID
    CROSS JOIN tblKeyword r ON r.keywordID = k.new
WHERE t.trashID = [entry]
    AND (NOT k.isThere OR NOT EXISTS (
        SELECT 1 FROM tblKeyword_link_searchWord x
        WHERE x.keywordID = k.new AND x.searchWordID = w.new));

-- A search word whose only keyword has just been removed is nobody's either.
DELETE FROM tblSearchWord
WHERE searchWordID IN (SELECT new FROM tblBackSearchWord WHERE NOT isThere)
    AND NOT EXISTS (
        SELECT 1 FROM tblKeyword_link_searchWord x
        WHERE x.searchWordID = tblSearchWord.searchWordID);

-- Authors, dates and cut off texts.
-- LEVELS
INSERT INTO tbl_Author_Link(ownerID, authorID, ownerTableID)
SELECT m.new, a.new, [levelNumber]
FROM tblTrashAuthorLink t CROSS JOIN tblBack[Level] m ON m.old = t.ownerID
    CROSS JOIN tblBackAuthor a ON a.old = t.authorID
WHERE t.trashID = [entry] AND t.ownerTableID = [levelNumber]
    AND (NOT m.isThere OR NOT EXISTS (
        SELECT 1 FROM tbl_Author_Link x
        WHERE x.ownerID = m.new AND x.ownerTableID = [levelNumber] AND x.authorID = a.new))
ORDER BY t.rowid;

INSERT INTO tbl_date_link(ownerID, dateID, ownerTableID)
SELECT m.new, d.new, [levelNumber]
FROM tblTrashDateLink t CROSS JOIN tblBack[Level] m ON m.old = t.ownerID
    CROSS JOIN tblBackDate d ON d.old = t.dateID
WHERE t.trashID = [entry] AND t.ownerTableID = [levelNumber];

INSERT OR IGNORE INTO tblOverlong(ownerID, ownerTableID, part, text)
SELECT m.new, [levelNumber], t.part, t.text
FROM tblTrashOverlong t CROSS JOIN tblBack[Level] m ON m.old = t.ownerID
WHERE t.trashID = [entry] AND t.ownerTableID = [levelNumber];
-- END

-- A procedure has one language.
INSERT INTO tblCode_Link_Language(codeID, languageID)
SELECT m.new, coalesce((SELECT l.new FROM tblBackLanguage l WHERE l.old = t.languageID), t.languageID)
FROM tblTrashCodeLanguage t CROSS JOIN tblBackCode m ON m.old = t.codeID
WHERE t.trashID = [entry]
    AND (NOT m.isThere OR NOT EXISTS (
        SELECT 1 FROM tblCode_Link_Language x WHERE x.codeID = m.new));

-- A bookmark names the whole path of what it leads to, as that is now.
INSERT INTO tblFavorite(appID, classID, codeID)
SELECT c.appID, c.classID, NULL
FROM tblTrashFavorite t CROSS JOIN tblBackClass m ON m.old = t.classID
    CROSS JOIN tblClass c ON c.classID = m.new
WHERE t.trashID = [entry] AND t.codeID IS NULL
    AND NOT EXISTS (SELECT 1 FROM tblFavorite x WHERE x.classID = m.new AND x.codeID IS NULL);

INSERT INTO tblFavorite(appID, classID, codeID)
SELECT c.appID, c.classID, m.new
FROM tblTrashFavorite t CROSS JOIN tblBackCode m ON m.old = t.codeID
    CROSS JOIN tblCode d ON d.codeID = m.new
    CROSS JOIN tblClass c ON c.classID = d.classID
WHERE t.trashID = [entry]
    AND NOT EXISTS (SELECT 1 FROM tblFavorite x WHERE x.codeID = m.new);

-- What the class's file looked like.
INSERT OR IGNORE INTO tblSourceForm(classID, form)
SELECT m.new, t.form
FROM tblTrashSourceForm t CROSS JOIN tblBackClass m ON m.old = t.classID
WHERE t.trashID = [entry];

-- The entry goes, and trgTrashDeleted takes the rest of it along.
DELETE FROM tblTrash WHERE trashID = [entry];
