-- Stored queries on languages. A class has its language in its row, a procedure by a link.

-- name: qryLanguage()
SELECT languageID, language, Status
FROM tblLanguage
ORDER BY language, languageID;

-- name: qryLanguageID(language T50)
SELECT languageID
FROM tblLanguage
WHERE language = [language]
ORDER BY languageID;

-- name: qryLanguageByID(languageID I)
SELECT language
FROM tblLanguage
WHERE languageID = [languageID];

-- name: qryLanguageByClassID(classID I)
SELECT lan.language
FROM tblClass cls INNER JOIN tblLanguage lan ON cls.languageID = lan.languageID
WHERE cls.classID = [classID];

-- name: qryLanguageByCodeID(codeID I)
SELECT lan.language
FROM tblCode_Link_Language cl INNER JOIN tblLanguage lan ON cl.languageID = lan.languageID
WHERE cl.codeID = [codeID];

-- name: qryLanguageIDByClassID(classID I)
SELECT languageID
FROM tblClass
WHERE classID = [classID];

-- name: qryLanguageIDByCodeID(codeID I)
SELECT languageID
FROM tblCode_Link_Language
WHERE codeID = [codeID];

-- name: qryLanguageRSByAppID(appID I)
SELECT DISTINCT lan.languageID, lan.language
FROM tblClass cls INNER JOIN tblLanguage lan ON cls.languageID = lan.languageID
WHERE cls.appID = [appID]
ORDER BY lan.language, lan.languageID;

-- name: qryStatusRSByLanguage(language T50)
SELECT Status, languageID
FROM tblLanguage
WHERE language = [language]
ORDER BY languageID;

-- All that uses a language. A class for itself has no codeID.
-- name: qryClassIDCodeIDRSByLanguage(language T50)
SELECT cls.classID, NULL AS codeID
FROM tblLanguage lan INNER JOIN tblClass cls ON lan.languageID = cls.languageID
WHERE lan.language = [language]
UNION ALL
SELECT cd.classID, cd.codeID
FROM (tblLanguage lan INNER JOIN tblCode_Link_Language cl ON lan.languageID = cl.languageID)
    INNER JOIN tblCode cd ON cl.codeID = cd.codeID
WHERE lan.language = [language];
