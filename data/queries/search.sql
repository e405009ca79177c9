-- Stored queries of the search. Each returns topics: an application's name and ID, a class's and a
-- procedure's, where a class found for itself has 0 and 'N/A' in the procedure's place.
--
-- With a language, a procedure is found by its class's language, and besides
--   6 and 9 (pages): only if it has a language of its own;
--   7 and 8 (scripts): also by its own language, since scripts stand in pages.
--
-- CROSS JOIN keeps the order of the tables. Left to itself the planner, which takes LIKE for a
-- sharp condition, looks at every class first and then searches each one's procedures. likelihood()
-- says that few procedures are left, or it would first read all classes into a filter. IS NOT NULL
-- lets it use the index of the classes that have a comment. The plus sign in "+cls.languageID"
-- keeps it from the index by languages, for which it would have to read past each class's text to
-- the comment.

-- name: qryCodeClassAppRSByComment(comment L)
SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName
FROM tblCode cd CROSS JOIN tblClass cls ON cd.classID = cls.classID
    CROSS JOIN tblApplication a ON cls.appID = a.appID
WHERE cd.codeComment LIKE [comment]
UNION
SELECT a.appName, a.appID, cls.classID, cls.className, 0, 'N/A'
FROM tblClass cls CROSS JOIN tblApplication a ON cls.appID = a.appID
WHERE cls.classComment IS NOT NULL AND cls.classComment LIKE [comment];

-- Languages 6 and 9.
-- name: qryCodeClassAppRSByCommentForASP(comment L, languageID I)
SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName
FROM tblCode cd CROSS JOIN tblClass cls ON cd.classID = cls.classID
    CROSS JOIN tblCode_Link_Language cl ON cd.codeID = cl.codeID
    CROSS JOIN tblApplication a ON cls.appID = a.appID
WHERE likelihood(cd.codeComment IS NOT NULL, 0.01) AND cd.codeComment LIKE [comment] AND cls.languageID = [languageID]
UNION
SELECT a.appName, a.appID, cls.classID, cls.className, 0, 'N/A'
FROM tblClass cls CROSS JOIN tblApplication a ON cls.appID = a.appID
WHERE cls.classComment IS NOT NULL AND cls.classComment LIKE [comment]
    AND +cls.languageID = [languageID];

-- Languages 7 and 8.
-- name: qryCodeClassAppRSByCommentForScript(comment L, languageID I)
SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName
FROM tblCode cd CROSS JOIN tblClass cls ON cd.classID = cls.classID
    CROSS JOIN tblApplication a ON cls.appID = a.appID
WHERE cd.codeComment LIKE [comment]
    AND (cls.languageID = [languageID]
        OR EXISTS (SELECT 1 FROM tblCode_Link_Language cl
                   WHERE cl.codeID = cd.codeID AND cl.languageID = [languageID]))
UNION
SELECT a.appName, a.appID, cls.classID, cls.className, 0, 'N/A'
FROM tblClass cls CROSS JOIN tblApplication a ON cls.appID = a.appID
WHERE cls.classComment IS NOT NULL AND cls.classComment LIKE [comment]
    AND +cls.languageID = [languageID];

-- All other languages.
-- name: qryCodeClassAppRSByCommentForOthers(comment L, languageID I)
SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName
FROM tblCode cd CROSS JOIN tblClass cls ON cd.classID = cls.classID
    CROSS JOIN tblApplication a ON cls.appID = a.appID
WHERE likelihood(cd.codeComment IS NOT NULL, 0.01) AND cd.codeComment LIKE [comment] AND cls.languageID = [languageID]
UNION
SELECT a.appName, a.appID, cls.classID, cls.className, 0, 'N/A'
FROM tblClass cls CROSS JOIN tblApplication a ON cls.appID = a.appID
WHERE cls.classComment IS NOT NULL AND cls.classComment LIKE [comment]
    AND +cls.languageID = [languageID];

-- A part of the name is enough. The comparison with the whole name finds one like
-- "operator[](int)", whose brackets mean something else in a pattern.
-- name: qryCodeClassAppRSByName(name T255)
SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName
FROM tblCode cd CROSS JOIN tblClass cls ON cd.classID = cls.classID
    CROSS JOIN tblApplication a ON cls.appID = a.appID
WHERE cd.codeName = [name] OR cd.codeName LIKE '%' || [name] || '%'
ORDER BY cd.codeName, a.appName, cls.className, cd.codeID;

-- name: qryCodeClassAppRSByNameLanguage(name T255, languageID I)
SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName
FROM tblCode cd CROSS JOIN tblClass cls ON cd.classID = cls.classID
    CROSS JOIN tblApplication a ON cls.appID = a.appID
WHERE (cd.codeName = [name] OR cd.codeName LIKE '%' || [name] || '%')
    AND ((cls.languageID = [languageID]
            AND ([languageID] NOT IN (6, 9)
                OR EXISTS (SELECT 1 FROM tblCode_Link_Language cl WHERE cl.codeID = cd.codeID)))
        OR ([languageID] IN (7, 8)
            AND EXISTS (SELECT 1 FROM tblCode_Link_Language cl
                        WHERE cl.codeID = cd.codeID AND cl.languageID = [languageID])))
ORDER BY cd.codeName, a.appName, cls.className, cd.codeID;

-- Here the name is the whole name.
-- name: qryCodeClassAppRSWithSearchWordCodeName(name T255, searchWord T50)
SELECT DISTINCT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName
FROM (((tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID)
    INNER JOIN tblApplication a ON cls.appID = a.appID)
    INNER JOIN tblKeyword_link_searchWord kl ON cd.keywordID = kl.keywordID)
    INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID
WHERE cd.codeName = [name] AND sw.searchWord = [searchWord]
ORDER BY a.appName, cls.className, cd.codeID;
