-- The layout of the first start: a window of 1024 by 768 pixels, in twips (15 to a pixel), with the
-- contents tree (pane 1) at the left.
INSERT INTO tblWindowSize(w_hID, tWidth, tHeight, tLeft, tTop, leftChildIndex, rightChildIndex,
                          wrap, leftChildWidth, rightChildWidth)
VALUES (1, 15360, 11520, 600, 450, 1, 0, FALSE, 4500, 4500);
