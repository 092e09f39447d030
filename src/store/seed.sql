-- Rows a new data file is delivered with. Keys below 500 are system rows.
INSERT INTO car_type_dm VALUES (1, 'Car'), (2, 'Driver'), (3, 'Top Bonus');
INSERT INTO scoring_option_dm VALUES (1, 'Count All Cars'), (2, 'Drop Lowest Finishers');
INSERT INTO race_type_dm VALUES (1, 'Winston Cup'), (2, 'Touring Cars'), (3, 'Trucks'), (4, 'Open Wheel'), (5, 'Sports Cars'), (6, 'F1');
INSERT INTO race_status_dm VALUES (1, 'Unofficial'), (2, 'Official'), (3, 'Qualifying');
INSERT INTO group_dm VALUES (1, 'Group A', -1), (2, 'Group B', -1), (3, 'Group C', -1);

-- Two system scoring methods: a long points table with lap bonuses, and a short top-six table.
INSERT INTO scoring_type VALUES (1, 'Standard Points', 5, 5, 0), (2, 'Top Six Points', 0, 0, 0);
INSERT INTO scoring_points VALUES (1, 1, 175, 0), (1, 2, 170, 0), (1, 3, 165, 0), (1, 4, 160, 0), (1, 5, 155, 0), (1, 6, 150, 0), (1, 7, 146, 0), (1, 8, 142, 0), (1, 9, 138, 0), (1, 10, 134, 0), (1, 11, 130, 0), (1, 12, 127, 0), (1, 13, 124, 0), (1, 14, 121, 0), (1, 15, 118, 0), (1, 16, 115, 0), (1, 17, 112, 0), (1, 18, 109, 0), (1, 19, 106, 0), (1, 20, 103, 0), (1, 21, 100, 0), (1, 22, 97, 0), (1, 23, 94, 0), (1, 24, 91, 0), (1, 25, 88, 0), (1, 26, 85, 0), (1, 27, 82, 0), (1, 28, 79, 0), (1, 29, 76, 0), (1, 30, 73, 0), (1, 31, 70, 0), (1, 32, 67, 0), (1, 33, 64, 0), (1, 34, 61, 0), (1, 35, 58, 0), (1, 36, 55, 0), (1, 37, 52, 0), (1, 38, 49, 0), (1, 39, 46, 0), (1, 40, 43, 0), (1, 41, 40, 0), (1, 42, 37, 0), (1, 43, 34, 0);
INSERT INTO scoring_points VALUES (2, 1, 10, 0), (2, 2, 6, 0), (2, 3, 4, 0), (2, 4, 3, 0), (2, 5, 2, 0), (2, 6, 1, 0);

-- Colour 0 stands for the default: its code "0" makes the report writers leave the attribute out.
INSERT INTO color_dm VALUES (0, 'Default', '0'), (1, 'Black', '#000000'), (2, 'White', '#FFFFFF'), (3, 'Red', '#FF0000'), (4, 'Maroon', '#800000'), (5, 'Navy', '#000080'), (6, 'Blue', '#0000FF'), (7, 'Light Blue', '#ADD8E6'), (8, 'Steel Blue', '#4682B4'), (9, 'Teal', '#008080'), (10, 'Green', '#008000'), (11, 'Dark Green', '#006400'), (12, 'Light Green', '#90EE90'), (13, 'Yellow', '#FFFF00'), (14, 'Light Yellow', '#FFFFE0'), (15, 'Gold', '#FFD700'), (16, 'Orange', '#FFA500'), (17, 'Purple', '#800080'), (18, 'Silver', '#C0C0C0'), (19, 'Gray', '#808080'), (20, 'Light Gray', '#EEEEEE'), (21, 'Dark Gray', '#404040'), (22, 'Beige', '#F5F5DC'), (23, 'Ivory', '#FFFFF0'), (24, 'Brown', '#8B4513');

INSERT INTO attribute_dm VALUES (1, 'Heading Text Color'), (2, 'Heading Back Color'), (3, 'Odd Row Text Color'), (4, 'Odd Row Back Color'), (5, 'Even Row Text Color'), (6, 'Even Row Back Color'), (7, 'Title Text Color'), (8, 'Back Color'), (9, 'Border Size'), (10, 'Cell Spacing'), (11, 'Cell Padding'), (12, 'Heading Text Size'), (13, 'Odd Row Text Size'), (14, 'Even Row Text Size'), (15, 'Title Text Size'), (16, 'Link Color'), (17, 'Visited Link Color'), (18, 'Hover Link Color'), (19, 'Header Image'), (20, 'Background Image'), (21, 'Include Active Only'), (22, 'Include Footer');

INSERT INTO publish (location, username, password) VALUES (NULL, NULL, NULL);
