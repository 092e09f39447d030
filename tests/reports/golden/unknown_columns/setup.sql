-- Column numbers the reports do not know stay out of every row in step; Race Detail's total row
-- has no cell for the Adjustment column, so the columns after it shift left there.
INSERT INTO report_columns (report_nmbr, column_nmbr, column_order) VALUES (2, 77, 3), (2, 5, 6);
DELETE FROM report_columns WHERE report_nmbr = 1;
INSERT INTO report_columns (report_nmbr, column_nmbr, column_order) VALUES
  (1, 2, 1), (1, 77, 2), (1, 1, 3), (1, 35, 4), (1, 8, 5), (1, 9, 6), (1, 10, 7), (1, 5, 8), (1, 4, 9);
