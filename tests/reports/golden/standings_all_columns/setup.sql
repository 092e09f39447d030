-- Every column League Standings knows, in an order of the operator's own.
DELETE FROM report_columns WHERE report_nmbr = 2;
INSERT INTO report_columns (report_nmbr, column_nmbr, column_order) VALUES
  (2, 13, 1), (2, 33, 2), (2, 34, 3), (2, 14, 4), (2, 9, 5), (2, 15, 6), (2, 16, 7), (2, 17, 8), (2, 18, 9),
  (2, 19, 10), (2, 20, 11), (2, 21, 12), (2, 22, 13);
