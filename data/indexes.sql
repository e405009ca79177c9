-- The indexes. Most hold more columns than they find by: a search that joins applications, classes
-- and procedures then never touches the tables with the long texts. The link tables have one for
-- each direction, since deletions go from the owner and searches to it.
--
-- Each index has its row in statistics.sql.

CREATE INDEX ixAppName ON tblApplication(appName);
CREATE INDEX ixAppPath ON tblApplication(appPath, appName);
CREATE INDEX ixAppKeyword ON tblApplication(keywordID) WHERE keywordID IS NOT NULL;

CREATE INDEX ixClassApp ON tblClass(appID, className, languageID, keywordID);
CREATE INDEX ixClassKeyword ON tblClass(keywordID, appID, languageID, className);
CREATE INDEX ixClassLanguage ON tblClass(languageID, appID, className, keywordID);
CREATE INDEX ixClassComment ON tblClass(classComment, appID, languageID, className)
    WHERE classComment IS NOT NULL;

-- A procedure gets its keywords after it was added, and each index that has them is written anew
-- then: ixCodeName has the most scattered places and goes without.
CREATE INDEX ixCodeClass ON tblCode(classID, codeName, keywordID);
CREATE INDEX ixCodeKeyword ON tblCode(keywordID, classID, codeName) WHERE keywordID IS NOT NULL;
CREATE INDEX ixCodeName ON tblCode(codeName, classID);
-- Comments are found by the index of texts, which does not know those of two letters and less. An
-- index of all of them would cost a sixth of what deleting a procedure does.
CREATE INDEX ixShortComment ON tblCode(codeComment) WHERE length(codeComment) <= 2;

CREATE INDEX ixSearchWord ON tblSearchWord(searchWord);
CREATE INDEX ixWordKeywords ON tblKeyword_link_searchWord(searchWordID);
CREATE INDEX ixCommonWord ON tblCommonWord(commonWord);

CREATE INDEX ixAuthorName ON tblAuthor(authorLName, authorFName, authorMName);
CREATE INDEX ixAuthorOwners ON tbl_Author_Link(authorID, ownerTableID, ownerID);
CREATE INDEX ixOwnerAuthors ON tbl_Author_Link(ownerID, ownerTableID, authorID);
CREATE INDEX ixDate ON tblDate(dDate);
CREATE INDEX ixDateOwners ON tbl_date_link(dateID, ownerTableID, ownerID);

CREATE INDEX ixLanguageCodes ON tblCode_Link_Language(languageID);

CREATE INDEX ixFavoriteClass ON tblFavorite(classID);
CREATE INDEX ixFavoriteCode ON tblFavorite(codeID);

CREATE UNIQUE INDEX ixOverlong ON tblOverlong(ownerID, ownerTableID, part);
CREATE UNIQUE INDEX ixNameBlock ON tblNameBlock(ownerTableID, block);

-- The trash is read one entry at a time.
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

-- A draft is read and replaced whole.
CREATE UNIQUE INDEX ixDraftText ON tblDraftText(draftID, field);
