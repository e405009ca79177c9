-- Stored queries on procedures. Lists to look at are sorted by name; where the procedures of a
-- class are put back into its text they come as they were stored, which is the order of the file.

-- name: qryCodeByID(codeID I)
SELECT code, codeID, codeName, codeComment, classID, keywordID
FROM tblCode
WHERE codeID = [codeID];

-- name: qryCodeNameByID(codeID I)
SELECT codeName
FROM tblCode
WHERE codeID = [codeID];

-- name: qryCodeIDByName(codeName T255)
SELECT codeID, classID
FROM tblCode
WHERE codeName = [codeName]
ORDER BY codeID;

-- name: qryCodeIDByCodeNameClassID(codeName T255, classID I)
SELECT codeID
FROM tblCode
WHERE classID = [classID] AND codeName = [codeName]
ORDER BY codeID;

-- name: qryCodeCommentCodeByID(codeID I)
SELECT codeComment, code, codeName
FROM tblCode
WHERE codeID = [codeID];

-- name: qryCodeCommentCodeByClassID(classID I)
SELECT codeComment, code, codeID
FROM tblCode
WHERE classID = [classID]
ORDER BY codeID;

-- name: qryCodeNameCommentCodeByClassID(classID I)
SELECT codeName, codeComment, code, codeID
FROM tblCode
WHERE classID = [classID]
ORDER BY codeID;

-- All of a procedure. The language is the procedure's own, which on a page is not the class's.
-- name: qryCodeClassAppLanRSByCodeID(codeID I)
SELECT cd.codeID, cd.codeName, cd.code, cd.codeComment, cd.keywordID, cls.classID, cls.className,
    a.appID, a.appName, lan.languageID, lan.language
FROM (((tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID)
    INNER JOIN tblApplication a ON cls.appID = a.appID)
    LEFT JOIN tblCode_Link_Language cl ON cd.codeID = cl.codeID)
    LEFT JOIN tblLanguage lan ON cl.languageID = lan.languageID
WHERE cd.codeID = [codeID];

-- A procedure without its long texts.
-- name: qryMiniCodeRSByCodeID(codeID I)
SELECT cd.codeID, cd.codeName, cls.classID, cls.className, a.appID, a.appName
FROM (tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID)
    INNER JOIN tblApplication a ON cls.appID = a.appID
WHERE cd.codeID = [codeID];

-- name: qryAppIDClassIDRSByCodeID(codeID I)
SELECT cls.appID, cls.classID
FROM tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID
WHERE cd.codeID = [codeID];

-- The third level of the contents tree.
-- name: qryCodeIDCodeNameByClassID(classID I)
SELECT codeID, codeName
FROM tblCode
WHERE classID = [classID]
ORDER BY codeName, codeID;

-- A procedure with the text of its class, where its marker stands; the language is the class's, on
-- which the form of the marker depends.
-- name: qryClassCodeRSByCodeID(codeID I)
SELECT cls.classID, cls.className, cls.languageID, cls.classDI, cd.codeID, cd.codeName,
    cd.codeComment, cd.code
FROM tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID
WHERE cd.codeID = [codeID];

-- Which procedure of a class's copy stands for which of the class. Their markers are found by the
-- same bytes, so their names are compared so. Of several procedures with the very same name, the
-- first one stands for the first one, and so on.
-- name: qryOldNewCodeIDRSByClassID(oldClassID I, newClassID I)
SELECT o.codeID AS oldCodeID, n.codeID AS newCodeID
FROM tblCode o INNER JOIN tblCode n ON o.codeName = n.codeName
WHERE o.classID = [oldClassID] AND n.classID = [newClassID]
    AND o.codeName = n.codeName COLLATE BINARY
    AND (SELECT count(*) FROM tblCode p
         WHERE p.classID = [oldClassID] AND p.codeName = o.codeName
             AND p.codeName = o.codeName COLLATE BINARY AND p.codeID < o.codeID)
        = (SELECT count(*) FROM tblCode p
           WHERE p.classID = [newClassID] AND p.codeName = n.codeName
               AND p.codeName = n.codeName COLLATE BINARY AND p.codeID < n.codeID)
ORDER BY o.codeID;

-- name: qryCodeCommentRSByID(codeID I)
SELECT codeComment
FROM tblCode
WHERE codeID = [codeID];
