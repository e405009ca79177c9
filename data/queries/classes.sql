-- Stored queries on classes: classes, modules, forms and pages.

-- name: qryClassNameByID(classID I)
SELECT className
FROM tblClass
WHERE classID = [classID];

-- name: qryClassDICommentLanIDByID(classID I)
SELECT classDI, classComment, languageID, className, classPathInApp AS classPath, appID
FROM tblClass
WHERE classID = [classID];

-- A class without a path and one with an empty path are the same.
-- name: qryClassIDByClassNameClassPathAppID(className T255, classPath L, appID I)
SELECT classID
FROM tblClass
WHERE appID = [appID] AND className = [className]
    AND (classPathInApp = [classPath] OR (classPathInApp IS NULL AND [classPath] = ''))
ORDER BY classID;

-- name: qryClassIDByClassNameAppID(className T255, appID I)
SELECT classID
FROM tblClass
WHERE appID = [appID] AND className = [className]
ORDER BY classID;

-- name: qryAppIDByClassID(classID I)
SELECT appID
FROM tblClass
WHERE classID = [classID];

-- name: qryClassIDByAppNameClassName(appName T255, className T255)
SELECT cls.classID, cls.appID
FROM tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID
WHERE a.appName = [appName] AND cls.className = [className]
ORDER BY cls.classID;

-- name: qryClassPathInAppByClassID(classID I)
SELECT classPathInApp AS classPath
FROM tblClass
WHERE classID = [classID];

-- All of a class. Its language may be one that has been deleted since.
-- name: qryClassLanguageAppByClassID(classID I)
SELECT cls.classID, cls.className, cls.classPathInApp AS classPath, cls.classDI, cls.classComment,
    cls.keywordID, cls.languageID, lan.language, a.appID, a.appName
FROM (tblClass cls INNER JOIN tblApplication a ON cls.appID = a.appID)
    LEFT JOIN tblLanguage lan ON cls.languageID = lan.languageID
WHERE cls.classID = [classID];

-- A class without its long texts.
-- name: qryMiniClassRSByClassID(classID I)
SELECT cls.classID, cls.className, cls.classPathInApp AS classPath, cls.languageID, a.appID,
    a.appName
FROM tblClass cls INNER JOIN tblApplication a ON cls.appID = a.appID
WHERE cls.classID = [classID];

-- name: qryClassRSByAppID(appID I)
SELECT classID, className, appID, languageID, classPathInApp AS classPath, classDI, classComment,
    keywordID
FROM tblClass
WHERE appID = [appID]
ORDER BY className, classID;

-- name: qryClassIDNameRSByAppID(appID I)
SELECT classID, className
FROM tblClass
WHERE appID = [appID]
ORDER BY className, classID;

-- The second level of the contents tree.
-- name: qryClassWithCodeCountByAppID(appID I)
SELECT cls.classID, cls.className,
    (SELECT count(*) FROM tblCode cd WHERE cd.classID = cls.classID) AS codeCount
FROM tblClass cls
WHERE cls.appID = [appID]
ORDER BY cls.className, cls.classID;

-- name: qryClassDIByClassID(classID I)
SELECT classDI
FROM tblClass
WHERE classID = [classID];

-- name: qryClassCommentRSByID(classID I)
SELECT classComment
FROM tblClass
WHERE classID = [classID];
